#include "Presentation/Coordinator/WXLScreenshotService.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QMenu>
#include <QPainter>
#include <QRasterWindow>

#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/QuickHost.h"

using namespace wexel;

namespace {

class ColouredWidget : public QWidget
{
public:
    explicit ColouredWidget(const QColor &colour, QWidget *parent = nullptr, Qt::WindowFlags flags = {})
        : QWidget(parent, flags)
        , m_colour(colour)
    {
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override { QPainter(this).fillRect(rect(), m_colour); }

private:
    QColor m_colour;
};

QImage screenshot()
{
    return WXLScreenshotService::sharedInstance().takeScreenshot();
}

// The colour at a place on the stage, whatever the device pixel ratio.
QColor colourAt(int x, int y)
{
    const QImage image = screenshot();
    const qreal ratio = image.devicePixelRatio();
    return image.pixelColor(QPointF(x * ratio, y * ratio).toPoint());
}

} // namespace

TEST(ScreenshotServiceTest, withoutAWindowThereIsNothing)
{
    EXPECT_TRUE(screenshot().isNull());
    EXPECT_TRUE(WXLScreenshotService::sharedInstance().getImageData({}).isEmpty());
}

TEST(ScreenshotServiceTest, windowsLieInOrderAtTheirPlacesOnTheStage)
{
    ColouredWidget dialog(Qt::green, nullptr, Qt::Dialog); // older than the window that it lies over
    dialog.setGeometry(150, 120, 100, 80);
    ColouredWidget window(Qt::red);
    window.setGeometry(100, 100, 300, 200);
    ColouredWidget menu(Qt::blue, &dialog, Qt::Popup);
    menu.setGeometry(200, 150, 20, 20);
    dialog.show();
    window.show();
    menu.show();
    EXPECT_EQ(screenshot().size(), QSize(300, 200) * window.devicePixelRatio());
    EXPECT_EQ(colourAt(10, 10), QColor(Qt::red));
    EXPECT_EQ(colourAt(55, 25), QColor(Qt::green));
    EXPECT_EQ(colourAt(105, 55), QColor(Qt::blue));
    EXPECT_EQ(colourAt(160, 60), QColor(Qt::red));
    EXPECT_EQ(hostMainWindow(), window.windowHandle());
}

TEST(ScreenshotServiceTest, theLibrarysClickableWindowsAreLeftOutAndAreNeverTheStage)
{
    ColouredWidget button(Qt::blue);
    button.setProperty(clickableWindowProperty, true);
    button.setGeometry(0, 0, 50, 50);
    button.show();
    EXPECT_TRUE(screenshot().isNull());
    ColouredWidget window(Qt::red);
    window.setGeometry(0, 0, 100, 100);
    window.show();
    QRasterWindow banner;
    banner.setProperty(clickableWindowProperty, true);
    banner.setGeometry(0, 0, 100, 20);
    banner.show();
    button.activateWindow();
    EXPECT_EQ(colourAt(5, 5), QColor(Qt::red));
    EXPECT_EQ(hostKeyWindow(), window.windowHandle());
}

TEST(ScreenshotServiceTest, quickWindowsShowTheirScenesAndOpenPopups)
{
    QuickHost host;
    QQuickWindow *window = host.show(
        "ApplicationWindow { width: 200; height: 100; visible: true; color: 'red'\n"
        "  Popup { objectName: 'popup'; x: 100; y: 50; width: 40; height: 40; enter: Transition {}\n"
        "          background: Rectangle { color: 'lime' } } }");
    EXPECT_EQ(colourAt(120, 70), QColor(Qt::red));
    QMetaObject::invokeMethod(host.named("popup"), "open");
    EXPECT_TRUE(waitUntil([] { return colourAt(120, 70) == QColor(Qt::green); }));
    ColouredWidget cover(Qt::blue, nullptr, Qt::Tool); // a tool window of Qt Widgets over the Qt Quick window
    cover.setGeometry(window->x(), window->y(), 20, 20);
    cover.show();
    EXPECT_EQ(colourAt(5, 5), QColor(Qt::blue));
    EXPECT_EQ(colourAt(50, 50), QColor(Qt::red));
    window->showMinimized();
    EXPECT_EQ(colourAt(50, 50), QColor(Qt::red));
    window->hide();
    cover.hide();
    EXPECT_TRUE(screenshot().isNull());
}

TEST(ScreenshotServiceTest, aQuickWindowInsideAWidgetIsDrawn)
{
    QuickHost host;
    host.show("Window { width: 100; height: 100; visible: true; color: 'lime' }");
    ColouredWidget window(Qt::red);
    window.setGeometry(0, 0, 200, 100);
    QWidget *container = QWidget::createWindowContainer(host.window, &window);
    container->setGeometry(100, 0, 100, 100);
    window.show();
    EXPECT_TRUE(waitUntil([] { return colourAt(150, 50) == QColor(Qt::green); }));
    EXPECT_EQ(colourAt(50, 50), QColor(Qt::red));
}

TEST(ScreenshotServiceTest, jpegPutsTransparencyOnWhite)
{
    QImage image(40, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(2);
    const QImage decoded
        = QImage::fromData(WXLScreenshotService::sharedInstance().getImageData(image), "JPG");
    EXPECT_EQ(decoded.size(), QSize(40, 20));
    EXPECT_EQ(decoded.pixelColor(20, 10), QColor(Qt::white));
}

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include <QRasterWindow>
#include <QTemporaryDir>

#include <Wexel/WXLWexelReportData.h>

#include "Business/WXLAppRepository.h"
#include "Presentation/Coordinator/FlowView.h"
#include "Presentation/Coordinator/WXLDisplayWindow.h"
#include "Presentation/Helpers/PictureItem.h"
#include "Presentation/Helpers/WXLBranding.h"
#include "Presentation/QuickHost.h"
#include "Presentation/Screen/WXLOverlayView.h"
#include "Presentation/Screen/WXLScreenshotVC.h"
#include "Presentation/Screen/WXLScreenshotVM.h"
#include "Presentation/Screens.h"

namespace wexel {

/// Grey, and almost every pixel differs from those around it.
inline QImage noise(const QSize &size)
{
    QImage image(size, QImage::Format_Grayscale8);
    std::generate_n(image.bits(), image.sizeInBytes(), std::mt19937(1));
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

inline bool isOpaque(const QQuickItem *item)
{
    return item == nullptr || (item->opacity() == 1 && isOpaque(item->parentItem()));
}

/// The editor in the flow's window, over a host of a phone's size. Places are those of the shown screenshot, in points.
struct EditorOverHost : testing::Test {
    void open(std::optional<qint32> storedColor = {})
    {
        host.setGeometry(50, 50, 390, 844);
        host.show();
        EXPECT_TRUE(waitUntil([this] { return host.isExposed(); }));
        repository.setLastUsedColor(storedColor);
        flow = std::make_unique<WXLDisplayWindow>();
        editor = flow->screen<WXLScreenshotVC>("Screenshot.qml");
        ASSERT_TRUE(editor);
        viewModel = std::make_shared<WXLScreenshotVM>(noise(flow->size() * flow->devicePixelRatio()), report);
        editor->viewDidLoad(viewModel, WXLBranding(), repository);
        flow->view().navigationController().pushViewController(editor, false);
        flow->makeKeyAndVisible();
        flow->view().navigationController().setScale(1); // as after the opening animation
        canvas = editor->findChild<WXLScreenshotView *>();
        toolbar = editor->findChild<WXLToolbarContainerView *>();
        EXPECT_TRUE(waitUntil([this] { return flow->isExposed(); }));
    }
    [[nodiscard]] QPoint inWindow(const QPointF &place) const
    {
        return canvas->mapToScene(canvas->imageFrame().topLeft() + place).toPoint();
    }
    void dragThrough(const std::vector<QPointF> &places) const
    {
        std::vector<QPoint> onScreen;
        for (const QPointF &place : places)
            onScreen.push_back(window()->mapToGlobal(inWindow(place)));
        drag(*window(), onScreen);
    }
    void dragAlong(const QLineF &line) const
    {
        dragThrough({line.p1(), line.pointAt(0.25), line.pointAt(0.5), line.p2()});
    }
    [[nodiscard]] QTest::QTouchEventSequence touch() const
    {
        return QTest::touchEvent(window(), screen.get());
    }
    [[nodiscard]] QWindow *window() const { return flow.get(); }
    void tap(const char *name) const
    {
        QQuickItem *item = tappable(editor, QString::fromUtf8(name));
        ASSERT_TRUE(item) << name;
        EXPECT_TRUE(waitUntil([item] { return item->isEnabled() && isOpaque(item); })) << name;
        click(item);
    }
    /// The image that all later ones are compared with: as large as it is shown, and not marked yet.
    [[nodiscard]] QImage baked() const
    {
        dragAlong({150, 300, 150, 300});
        return viewModel->screenshotImage;
    }
    /// The image differs in most of an area, in points, and nowhere else; and it is the one that is shown.
    void expectChanged(const QImage &before, const QRectF &area) const
    {
        const QImage &after = viewModel->screenshotImage;
        ASSERT_EQ(before.size(), after.size());
        EXPECT_EQ(after, shownImage());
        QRect changed;
        int pixels = 0;
        for (int y = 0; y < after.height(); ++y) {
            for (int x = 0; x < after.width(); ++x) {
                if (before.pixel(x, y) == after.pixel(x, y))
                    continue;
                changed |= QRect(x, y, 1, 1);
                ++pixels;
            }
        }
        const double ratio = after.devicePixelRatio();
        expectNear(QRectF(QPointF(changed.topLeft()) / ratio, QSizeF(changed.size()) / ratio), area, 2);
        EXPECT_GT(pixels, 0.65 * area.width() * area.height() * ratio * ratio);
    }
    /// How much more green than red there is.
    [[nodiscard]] int greenAt(const QPointF &place) const
    {
        const QImage &image = viewModel->screenshotImage;
        const QColor colour = image.pixelColor((place * image.devicePixelRatio()).toPoint());
        return colour.green() - colour.red();
    }
    [[nodiscard]] const QImage &shownImage() const { return canvas->screenshotImageView().image(); }
    [[nodiscard]] const QColor &drawingColor() const { return canvas->overlayView().drawingColor(); }
    [[nodiscard]] auto selectedTool() const { return toolbar->property("selectedTool").toInt(); }

    QTemporaryDir folder;
    WXLAppRepository repository{
        makeUserDefaults(folder.filePath(QStringLiteral("store")), [](auto, auto) {})};
    std::shared_ptr<WXLWexelReportData> report = std::make_shared<WXLWexelReportData>(QVariantMap());
    QRasterWindow host;
    std::shared_ptr<WXLScreenshotVM> viewModel;
    std::unique_ptr<WXLDisplayWindow> flow;
    WXLScreenshotVC *editor = nullptr;
    WXLScreenshotView *canvas = nullptr;
    WXLToolbarContainerView *toolbar = nullptr;
    const std::unique_ptr<QPointingDevice> screen{QTest::createTouchDevice()};
};

} // namespace wexel

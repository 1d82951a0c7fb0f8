#include "Presentation/Coordinator/WXLScreenshotService.h"

#include "Business/ImageData.h"

#include <QPainter>
#include <QQuickWindow>
#include <QWidget>

#include "Presentation/Helpers/HostWindows.h"

namespace wexel {

namespace {

QPoint positionOnStage(const QWindow *window, const QWindow *stage)
{
    return window->mapToGlobal(QPoint()) - stage->mapToGlobal(QPoint());
}

// Qt's software renderer does not tell the ratio of its picture.
QImage pictureOf(QQuickWindow *window)
{
    QImage picture = window->grabWindow();
    picture.setDevicePixelRatio(window->effectiveDevicePixelRatio());
    return picture;
}

// Windows that are neither Qt Quick's nor Qt Widgets' cannot be drawn and stay transparent.
void drawWindow(QPainter &painter, QWindow *window, const QWindow *stage)
{
    const QPoint position = positionOnStage(window, stage);
    if (auto *quick = qobject_cast<QQuickWindow *>(window))
        painter.drawImage(position, pictureOf(quick));
    else if (auto *widget = widgetOf(window))
        painter.drawPixmap(position, widget->grab());
    // Quick windows embedded in a widget are not part of the widget's own picture.
    for (auto *child : window->findChildren<QQuickWindow *>()) {
        if (child->isVisible() && !child->isTopLevel())
            painter.drawImage(positionOnStage(child, stage), pictureOf(child));
    }
}

QImage pictureOfStage(const QList<QWindow *> &windows)
{
    const QWindow *stage = hostMainWindow();
    if (stage == nullptr || stage->size().isEmpty())
        return {};
    const qreal ratio = stage->devicePixelRatio();
    QImage image((QSizeF(stage->size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (QWindow *window : windows) {
        painter.setOpacity(window->opacity());
        drawWindow(painter, window, stage);
    }
    return image;
}

} // namespace

WXLScreenshotService &WXLScreenshotService::sharedInstance()
{
    static auto *const instance = new WXLScreenshotService;
    return *instance;
}

QImage WXLScreenshotService::takeScreenshot() const
{
    return pictureOfStage(windowsBackToFront());
}

QImage WXLScreenshotService::takePictureOfHost() const
{
    QList<QWindow *> windows = windowsBackToFront();
    windows.removeIf(isOwn);
    return pictureOfStage(windows);
}

QByteArray WXLScreenshotService::getImageData(const QImage &image) const
{
    return wexel::getImageData(image);
}

} // namespace wexel

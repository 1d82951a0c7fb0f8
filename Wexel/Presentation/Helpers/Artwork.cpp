#include "Presentation/Helpers/Artwork.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include "Platform/Log.h"

namespace wexel {

QImage artwork(const QString &name, QSize points, qreal devicePixelRatio, const std::optional<QColor> &tint)
{
    QSvgRenderer renderer;
    const QString path = QStringLiteral(":/wexel/Icons/%1.svg").arg(name);
    if (!QFile::exists(path) || !renderer.load(path)) {
        log(QStringLiteral("Failed to load image: %1").arg(name));
        return {};
    }
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(points * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(image.rect()));
    if (tint) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), *tint);
    }
    painter.end();
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

} // namespace wexel

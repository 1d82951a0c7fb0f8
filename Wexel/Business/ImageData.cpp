#include "Business/ImageData.h"

#include <QBuffer>
#include <QPainter>

namespace wexel {

QByteArray getImageData(const QImage &image)
{
    if (image.isNull())
        return {};
    QImage opaque(image.size(), QImage::Format_RGB32); // JPEG knows no alpha
    opaque.fill(Qt::white);
    QImage source = image;
    source.setDevicePixelRatio(1);
    QPainter(&opaque).drawImage(0, 0, source);

    constexpr int qualityPercent = 70;
    QByteArray data;
    QBuffer buffer(&data);
    opaque.save(&buffer, "JPEG", qualityPercent);
    return data;
}

} // namespace wexel

#include "Business/ImageData.h"

#include <QBuffer>

namespace wexel {

QByteArray getImageData(const QImage &image)
{
    constexpr int qualityPercent = 70;
    QByteArray data;
    QBuffer buffer(&data);
    if (!image.isNull())
        image.save(&buffer, "JPEG", qualityPercent);
    return data;
}

} // namespace wexel

#include "Presentation/Helpers/ArtworkProvider.h"

#include <QGuiApplication>

#include "Presentation/Helpers/Artwork.h"

namespace wexel {

QImage ArtworkProvider::requestImage(const QString &id, QSize *size, const QSize & /*requestedSize*/)
{
    const int side = id.section(u'/', 1).toInt();
    QImage image = artwork(id.section(u'/', 0, 0), {side, side}, qGuiApp->devicePixelRatio());
    *size = image.size();
    return image;
}

} // namespace wexel

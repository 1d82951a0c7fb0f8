#include "Presentation/Helpers/PictureItem.h"

#include <QPainter>
#include <QPainterPath>

namespace wexel {

PictureItem::PictureItem(QQuickItem *parent) : QQuickPaintedItem(parent) { }

void PictureItem::setImage(const QImage &image)
{
    m_image = image;
    update();
    Q_EMIT imageChanged();
}

void PictureItem::updatePixels(const QRect &pixels)
{
    const double across = width() / std::max(1, m_image.width());
    const double down = height() / std::max(1, m_image.height());
    const QRectF points(pixels.x() * across, pixels.y() * down, pixels.width() * across,
                        pixels.height() * down);
    update(points.toAlignedRect().adjusted(-1, -1, 1, 1)); // scaling looks at the pixels around
}

void PictureItem::paint(QPainter *painter)
{
    painter->setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
    if (m_cornerRadius > 0) {
        QPainterPath outline;
        outline.addRoundedRect(boundingRect(), m_cornerRadius, m_cornerRadius);
        painter->setClipPath(outline, Qt::IntersectClip);
    }
    painter->drawImage(boundingRect(), m_image, source());
}

QRectF PictureItem::source() const
{
    QRectF part = m_image.rect();
    if (m_fills)
        part.setSize(size().scaled(part.size(), Qt::KeepAspectRatio));
    part.moveCenter(QRectF(m_image.rect()).center());
    return part;
}

} // namespace wexel

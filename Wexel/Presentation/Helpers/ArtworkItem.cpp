#include "Presentation/Helpers/ArtworkItem.h"

#include <QPainter>

#include "Presentation/Helpers/Artwork.h"

namespace wexel {

ArtworkItem::ArtworkItem(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    connect(this, &ArtworkItem::changed, this, [this] { update(); });
}

void ArtworkItem::paint(QPainter *painter)
{
    const auto tint = m_tint.isValid() ? std::optional(m_tint) : std::nullopt;
    painter->drawImage(0, 0, artwork(m_name, size().toSize(), painter->device()->devicePixelRatioF(), tint));
}

} // namespace wexel

#include "Presentation/Helpers/ShadowItem.h"

#include <QPainter>

#include "Presentation/Helpers/Shadow.h"

namespace wexel {

ShadowItem::ShadowItem(QQuickItem *parent) : QQuickPaintedItem(parent) { }

void ShadowItem::componentComplete()
{
    QQuickPaintedItem::componentComplete();
    connect(this, &ShadowItem::changed, this, &ShadowItem::layOut);
    connect(parentItem(), &QQuickItem::widthChanged, this, &ShadowItem::layOut);
    connect(parentItem(), &QQuickItem::heightChanged, this, &ShadowItem::layOut);
    layOut();
}

void ShadowItem::layOut()
{
    const double margin = shadowMargin(m_blur);
    setPosition(m_offset - QPointF(margin, margin));
    setSize(parentItem()->size() + QSizeF(2 * margin, 2 * margin));
    update();
}

void ShadowItem::paint(QPainter *painter)
{
    painter->drawImage(0, 0,
                       shadow(parentItem()->size(), m_cornerRadius, m_blur, m_color,
                              painter->device()->devicePixelRatioF()));
}

} // namespace wexel

#include "Presentation/Helpers/WXLLargerTappableButton.h"

#include <cmath>
#include <utility>

#include <QMouseEvent>

namespace wexel {

WXLLargerTappableButton::WXLLargerTappableButton(QQuickItem *parent) : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
}

bool WXLLargerTappableButton::isPointInside(const QPointF &point, const QRectF &bounds,
                                            qint32 horizontalInset, qint32 verticalInset)
{
    return point.x() >= std::trunc(bounds.x() - horizontalInset)
        && point.x() <= std::trunc(horizontalInset + bounds.x() + bounds.width())
        && point.y() >= std::trunc(bounds.y() - verticalInset)
        && point.y() <= std::trunc(verticalInset + bounds.y() + bounds.height());
}

bool WXLLargerTappableButton::contains(const QPointF &point) const
{
    return isPointInside(point, boundingRect(), horizontalClickableInset, verticalClickableInset);
}

void WXLLargerTappableButton::setHighlighted(bool highlighted)
{
    if (std::exchange(m_isHighlighted, highlighted) != highlighted)
        Q_EMIT highlightedChanged();
}

void WXLLargerTappableButton::mousePressEvent(QMouseEvent * /*event*/)
{
    setHighlighted(true);
}

void WXLLargerTappableButton::mouseMoveEvent(QMouseEvent *event)
{
    setHighlighted(contains(event->position()));
}

void WXLLargerTappableButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (contains(event->position())) // stays highlighted: what it belongs to is about to go
        Q_EMIT tapped();
}

void WXLLargerTappableButton::mouseUngrabEvent()
{
    setHighlighted(false);
}

} // namespace wexel

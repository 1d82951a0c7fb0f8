#include "Presentation/Helpers/WXLLargerTappableButton.h"

#include <cmath>

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

void WXLLargerTappableButton::mousePressEvent(QMouseEvent * /*event*/)
{
    // Accepted, so that the release comes here.
}

void WXLLargerTappableButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (contains(event->position()))
        Q_EMIT tapped();
}

} // namespace wexel

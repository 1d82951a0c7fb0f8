#include "Presentation/Screen/WXLOverlayView.h"

#include <utility>

#include <QPainter>

#include "Presentation/Screen/StrokePath.h"

namespace wexel {

WXLOverlayView::WXLOverlayView(QQuickItem *parent) : QQuickPaintedItem(parent) { }

void WXLOverlayView::touchesBegan(const QPointF &point)
{
    if (drawingStartedCallback)
        drawingStartedCallback();
    m_pointsToDraw.clear();
    m_unsettled = {};
    appendPoint(point);
}

void WXLOverlayView::touchesMoved(const QPointF &point)
{
    appendPoint(point);
}

void WXLOverlayView::touchesEnded()
{
    if (NeedScreenshotBlock)
        NeedScreenshotBlock();
    m_pointsToDraw.clear();
    m_stroke.clear();
    update();
}

void WXLOverlayView::appendPoint(const QPointF &point)
{
    m_pointsToDraw.push_back(point);
    m_stroke = strokePath(m_pointsToDraw, m_algorithm);
    const QRectF before = std::exchange(m_unsettled, unsettledBounds(m_stroke));
    update((before | m_unsettled).toAlignedRect());
}

void WXLOverlayView::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF dirty = painter->hasClipping() ? painter->clipBoundingRect() : boundingRect();
    painter->strokePath(strokePartWithin(m_stroke, dirty), strokePen(m_drawingColor));
}

void WXLOverlayView::drawStroke(QPainter &painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(m_stroke, strokePen(m_drawingColor));
}

} // namespace wexel

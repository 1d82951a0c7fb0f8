#pragma once

#include <functional>
#include <vector>

#include <QColor>
#include <QPainterPath>
#include <QQuickPaintedItem>

#include "Helpers/WXLCubicCurveAlgorithm.h"

namespace wexel {

/// Lies over the screenshot, clear, and collects and draws the stroke in progress. Main thread only.
class WXLOverlayView final : public QQuickPaintedItem
{
    Q_OBJECT

public:
    explicit WXLOverlayView(QQuickItem *parent);

    [[nodiscard]] const QColor &drawingColor() const { return m_drawingColor; }
    void setDrawingColor(const QColor &color) { m_drawingColor = color; }
    std::function<void()> drawingStartedCallback; ///< a stroke begins
    std::function<void()>
        NeedScreenshotBlock; ///< a stroke has ended and is still shown: keep it in the image

    // A finger, the pen or the mouse, in the coordinates of the view.
    void touchesBegan(const QPointF &point);
    void touchesMoved(const QPointF &point);
    void touchesEnded();

    void paint(QPainter *painter) override;
    /// The same drawing for the image that the stroke is kept in.
    void drawStroke(QPainter &painter) const;

private:
    void appendPoint(const QPointF &point);

    QColor m_drawingColor;
    std::vector<QPointF> m_pointsToDraw;
    WXLCubicCurveAlgorithm m_algorithm;
    QPainterPath m_stroke; ///< through all points so far
    QRectF m_unsettled; ///< where the next point may still change it
};

} // namespace wexel

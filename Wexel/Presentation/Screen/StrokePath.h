#pragma once

#include <vector>

#include <QPainterPath>
#include <QPen>

#include "Helpers/WXLCubicCurveAlgorithm.h"

namespace wexel {

/// The width of a stroke, in points.
inline constexpr double lineWidth = 2.0;

/// The smooth line through the points of a stroke, in their coordinates. Empty for fewer than two points and, as for
/// a tap, for points that are all the same. The algorithm is the caller's so that its memory is reused.
[[nodiscard]] QPainterPath strokePath(const std::vector<QPointF> &points, WXLCubicCurveAlgorithm &algorithm);

/// What strokes are drawn with, antialiased.
[[nodiscard]] QPen strokePen(const QColor &color);

/// For a redraw that costs what the last move changed and not what the whole stroke would, with the same pixels. Both
/// take what strokePath() made; rectangles are in its coordinates, too.
///
/// Where a stroke covers what its next point can still change by more than a hundredth of a pixel, with some margin. A
/// stroke that got one more point has to be redrawn in this rectangle of before and that of now.
[[nodiscard]] QRectF unsettledBounds(const QPainterPath &stroke);

/// The segments of a stroke that show within the rectangle: clipped to it, they look as the whole stroke does.
[[nodiscard]] QPainterPath strokePartWithin(const QPainterPath &stroke, const QRectF &rectangle);

} // namespace wexel

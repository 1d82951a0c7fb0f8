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

} // namespace wexel

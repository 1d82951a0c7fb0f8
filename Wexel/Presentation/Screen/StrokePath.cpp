#include "Presentation/Screen/StrokePath.h"

namespace wexel {

QPainterPath strokePath(const std::vector<QPointF> &points, WXLCubicCurveAlgorithm &algorithm)
{
    const auto &segments = algorithm.segmentsFromPoints(points);
    if (segments.empty())
        return {};
    QPainterPath path(points.front());
    path.reserve(static_cast<int>(1 + 3 * segments.size()));
    for (size_t i = 0; i < segments.size(); ++i)
        path.cubicTo(segments[i].controlPoint1, segments[i].controlPoint2, points[i + 1]);
    return path;
}

QPen strokePen(const QColor &color)
{
    return {color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

} // namespace wexel

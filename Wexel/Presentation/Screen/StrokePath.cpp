#include "Presentation/Screen/StrokePath.h"

#include <algorithm>
#include <utility>

namespace wexel {

namespace {

constexpr int elementsPerSegment = 3; // after the one that starts the path

// A new point moves the curve by less than its distance at the last segment, and by a factor of 2 - sqrt(3) less at each
// segment before: after ten of them a thousand pixels are two thousandths of one.
constexpr int unsettledSegments = 10;

// The curves from one element on to another lie between their control points. The margin is half the line and what
// antialiasing adds to it.
QRectF boundsOfElements(const QPainterPath &path, int first, int last)
{
    double left = path.elementAt(first).x, right = left;
    double top = path.elementAt(first).y, bottom = top;
    for (int i = first + 1; i <= last; ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        left = std::min(left, element.x);
        right = std::max(right, element.x);
        top = std::min(top, element.y);
        bottom = std::max(bottom, element.y);
    }
    return QRectF(QPointF(left, top), QPointF(right, bottom))
        .adjusted(-lineWidth, -lineWidth, lineWidth, lineWidth);
}

} // namespace

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

QRectF unsettledBounds(const QPainterPath &stroke)
{
    if (stroke.isEmpty())
        return {};
    const int last = stroke.elementCount() - 1;
    return boundsOfElements(stroke, std::max(0, last - unsettledSegments * elementsPerSegment), last);
}

// A piece begins and ends outside of the rectangle, or with the stroke: its caps are not seen.
QPainterPath strokePartWithin(const QPainterPath &stroke, const QRectF &rectangle)
{
    QPainterPath part;
    bool isWithin = false;
    for (int end = elementsPerSegment; end < stroke.elementCount(); end += elementsPerSegment) {
        const int begin = end - elementsPerSegment;
        const bool wasWithin
            = std::exchange(isWithin, boundsOfElements(stroke, begin, end).intersects(rectangle));
        if (isWithin && !wasWithin)
            part.moveTo(stroke.elementAt(begin));
        if (isWithin)
            part.cubicTo(stroke.elementAt(begin + 1), stroke.elementAt(begin + 2), stroke.elementAt(end));
    }
    return part;
}

} // namespace wexel

#include "Helpers/WXLCubicCurveAlgorithm.h"

#include <utility>

namespace wexel {

std::optional<std::vector<CubicCurveSegment>>
WXLCubicCurveAlgorithm::controlPointsFromPoints(const std::vector<QPointF> &points)
{
    if (points.size() < 2)
        return std::nullopt;
    WXLCubicCurveAlgorithm algorithm;
    algorithm.segmentsFromPoints(points);
    return std::move(algorithm.m_segments);
}

const std::vector<CubicCurveSegment> &
WXLCubicCurveAlgorithm::segmentsFromPoints(const std::vector<QPointF> &points)
{
    const size_t count = points.size() < 2 ? 0 : points.size() - 1;
    m_segments.resize(count);
    m_diagonal.resize(count);
    if (count == 1) {
        auto &[first, second] = m_segments.front();
        first = (2 * points[0] + points[1]) / 3;
        second = 2 * first - points[0];
    } else if (count > 1) {
        solve(points);
    }
    return m_segments;
}

// The right-hand sides stand where the first control points come to be.
void WXLCubicCurveAlgorithm::solve(const std::vector<QPointF> &points)
{
    const size_t last = m_segments.size() - 1;
    m_diagonal[0] = 2;
    m_segments[0].controlPoint1 = points[0] + 2 * points[1];
    for (size_t i = 1; i < last; ++i) {
        const double factor = 1 / m_diagonal[i - 1];
        m_diagonal[i] = 4 - factor;
        m_segments[i].controlPoint1
            = 4 * points[i] + 2 * points[i + 1] - factor * m_segments[i - 1].controlPoint1;
    }
    const double factor = 2 / m_diagonal[last - 1];
    m_diagonal[last] = 7 - factor;
    m_segments[last].controlPoint1
        = 8 * points[last] + points[last + 1] - factor * m_segments[last - 1].controlPoint1;

    m_segments[last].controlPoint1 /= m_diagonal[last];
    m_segments[last].controlPoint2 = 0.5 * (points[last + 1] + m_segments[last].controlPoint1);
    for (size_t i = last; i-- > 0;) {
        const QPointF &next = m_segments[i + 1].controlPoint1;
        m_segments[i].controlPoint1 = (m_segments[i].controlPoint1 - next) / m_diagonal[i];
        m_segments[i].controlPoint2 = 2 * points[i + 1] - next;
    }
}

} // namespace wexel

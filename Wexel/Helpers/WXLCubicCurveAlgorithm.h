#pragma once

#include <optional>
#include <vector>

#include <QPointF>

namespace wexel {

/// The two inner control points of the cubic Bezier curve between two consecutive points of a stroke.
struct CubicCurveSegment {
    QPointF controlPoint1;
    QPointF controlPoint2;
};

/// Smooths a stroke: joins its points by cubic Bezier curves that together are a spline, whose first and second
/// derivatives are continuous at every point and whose second derivative is zero at both ends.
///
/// With the points P0 ... Pn, and Ci and Di for the control points of the segment from Pi to P(i+1), these are the
/// conditions D(i-1) + Ci = 2 Pi and C(i-1) - 2 D(i-1) = -2 Ci + Di at each inner point, P0 - 2 C0 + D0 = 0 and
/// C(n-1) - 2 D(n-1) + Pn = 0 at the ends. Without the Di they are a tridiagonal system for the Ci:
///
///     first    2 C0 + C1 = P0 + 2 P1
///     between  C(i-1) + 4 Ci + C(i+1) = 4 Pi + 2 P(i+1)
///     last     2 C(n-2) + 7 C(n-1) = 8 P(n-1) + Pn
///
/// It is solved in time and memory linear in the number of points. Points are in any unit; equal points in a row make
/// segments without length. The static function may be called from any thread, one object from one thread at a time.
class WXLCubicCurveAlgorithm
{
public:
    /// The segments, one for each pair of consecutive points, in their order. Nothing for fewer than two points.
    [[nodiscard]] static std::optional<std::vector<CubicCurveSegment>>
    controlPointsFromPoints(const std::vector<QPointF> &points);

    /// The same, none for fewer than two points, in memory of this object: valid until the next call, which allocates
    /// only for a stroke that is longer than all before.
    const std::vector<CubicCurveSegment> &segmentsFromPoints(const std::vector<QPointF> &points);

private:
    void solve(const std::vector<QPointF> &points);

    std::vector<CubicCurveSegment> m_segments;
    std::vector<double> m_diagonal; // as the elimination leaves it
};

} // namespace wexel

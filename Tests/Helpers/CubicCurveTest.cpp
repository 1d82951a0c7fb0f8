#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "Helpers/WXLCubicCurveAlgorithm.h"

using namespace wexel;

namespace {

std::vector<QPointF> randomPoints(size_t count)
{
    std::mt19937 random(static_cast<unsigned>(count));
    std::uniform_real_distribution<> coordinate(-500, 500);
    std::vector<QPointF> points(count);
    for (QPointF &point : points)
        point = {coordinate(random), coordinate(random)};
    return points;
}

/// Gaussian elimination with pivoting of a dense system; the last column holds the right-hand sides.
using Matrix = std::vector<std::vector<double>>;
std::vector<double> solved(Matrix rows)
{
    const size_t size = rows.size();
    for (size_t column = 0; column < size; ++column) {
        std::iter_swap(rows.begin() + column,
                       std::max_element(rows.begin() + column, rows.end(), [&](auto &a, auto &b) {
                           return std::abs(a[column]) < std::abs(b[column]);
                       }));
        for (size_t row = 0; row < size; ++row) {
            const double factor = row == column ? 0 : rows[row][column] / rows[column][column];
            for (size_t i = column; factor != 0 && i <= size; ++i)
                rows[row][i] -= factor * rows[column][i];
        }
    }
    std::vector<double> result(size);
    for (size_t row = 0; row < size; ++row)
        result[row] = rows[row][size] / rows[row][row];
    return result;
}

/// The control points of both kinds, turn and turn about, from what a natural spline is.
std::vector<double> splineControls(const std::vector<double> &points)
{
    const size_t count = points.size() - 1;
    Matrix rows;
    const auto require = [&](std::initializer_list<std::pair<size_t, double>> terms, double sum) {
        auto &row = rows.emplace_back(2 * count + 1, 0.0);
        for (const auto &[unknown, factor] : terms)
            row[unknown] = factor;
        row.back() = sum;
    };
    require({{0, -2}, {1, 1}}, -points.front());
    for (size_t i = 1; i < count; ++i) {
        require({{2 * i - 1, 1}, {2 * i, 1}}, 2 * points[i]);
        require({{2 * i - 2, 1}, {2 * i - 1, -2}, {2 * i, 2}, {2 * i + 1, -1}}, 0);
    }
    require({{2 * count - 2, 1}, {2 * count - 1, -2}}, -points.back());
    return solved(rows);
}

void expectNear(const QPointF &actual, const QPointF &expected, size_t index)
{
    EXPECT_NEAR(actual.x(), expected.x(), 1e-9) << index;
    EXPECT_NEAR(actual.y(), expected.y(), 1e-9) << index;
}

TEST(CubicCurve, IsTheNaturalSpline)
{
    for (size_t count = 2; count < 30; ++count) {
        auto points = randomPoints(count);
        if (count > 10) // a finger that rests
            points[count / 2] = points[count / 2 + 1] = points[count / 2 + 2];
        std::vector<double> x, y;
        for (const QPointF &point : points) {
            x.push_back(point.x());
            y.push_back(point.y());
        }
        const auto expectedX = splineControls(x), expectedY = splineControls(y);
        const auto segments = WXLCubicCurveAlgorithm::controlPointsFromPoints(points);
        ASSERT_TRUE(segments);
        ASSERT_EQ(segments->size(), count - 1);
        for (size_t i = 0; i < segments->size(); ++i) {
            expectNear((*segments)[i].controlPoint1, {expectedX[2 * i], expectedY[2 * i]}, i);
            expectNear((*segments)[i].controlPoint2, {expectedX[2 * i + 1], expectedY[2 * i + 1]}, i);
        }
    }
}

TEST(CubicCurve, KeepsAStraightStrokeStraight)
{
    for (const size_t count : {2, 3, 4, 50}) {
        std::vector<QPointF> points;
        for (size_t i = 0; i < count; ++i)
            points.emplace_back(10.0 * i, 7 - 3.0 * i);
        const auto segments = WXLCubicCurveAlgorithm::controlPointsFromPoints(points);
        ASSERT_TRUE(segments);
        const QPointF third = (points[1] - points[0]) / 3;
        for (size_t i = 0; i + 1 < count; ++i) {
            expectNear(segments->at(i).controlPoint1, points[i] + third, i);
            expectNear(segments->at(i).controlPoint2, points[i] + 2 * third, i);
        }
    }
}

TEST(CubicCurve, IsSmoothAtEveryPointOfLongAndShortStrokesOfOneObject)
{
    WXLCubicCurveAlgorithm algorithm;
    for (const size_t count : {3, 20'000, 2, 5}) {
        const auto points = randomPoints(count);
        const auto &segments = algorithm.segmentsFromPoints(points);
        ASSERT_EQ(segments.size(), count - 1);
        for (size_t i = 1; i < segments.size(); ++i) {
            const auto &[before1, before2] = segments[i - 1];
            const auto &[after1, after2] = segments[i];
            expectNear(points[i] - before2, after1 - points[i], i);
            expectNear(before1 - 2 * before2, after2 - 2 * after1, i);
        }
        expectNear(points[0] - 2 * segments[0].controlPoint1, -segments[0].controlPoint2, 0);
    }
    EXPECT_TRUE(algorithm.segmentsFromPoints({{1, 2}}).empty());
}

TEST(CubicCurve, NeedsTwoPoints)
{
    EXPECT_FALSE(WXLCubicCurveAlgorithm::controlPointsFromPoints({}));
    EXPECT_FALSE(WXLCubicCurveAlgorithm::controlPointsFromPoints({{1, 2}}));
}

} // namespace

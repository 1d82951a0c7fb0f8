#include <gtest/gtest.h>

#include <cmath>

#include <QPainter>

#include "Presentation/Screen/StrokePath.h"

using namespace wexel;

namespace {

QImage emptyOverlay()
{
    QImage image(300, 300, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

void draw(QImage &overlay, const QRect &area, const QPainterPath &stroke)
{
    QPainter painter(&overlay);
    painter.setClipRect(area);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(area, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(stroke, strokePen(Qt::red));
}

TEST(StrokePath, RunsThroughThePointsAndNeedsTwo)
{
    WXLCubicCurveAlgorithm algorithm;
    EXPECT_TRUE(strokePath({}, algorithm).isEmpty());
    EXPECT_TRUE(strokePath({{10, 10}}, algorithm).isEmpty());
    EXPECT_TRUE(unsettledBounds(strokePath({{10, 10}}, algorithm)).isEmpty());

    const std::vector<QPointF> points = {{20, 20}, {200, 60}, {90, 250}};
    QImage overlay = emptyOverlay();
    draw(overlay, overlay.rect(), strokePath(points, algorithm));
    for (const QPointF &point : points)
        EXPECT_EQ(overlay.pixelColor(point.toPoint()).red(), 255) << point.x();
    EXPECT_GT(overlay.pixelColor(19, 20).alpha(), 100); // the round cap
    EXPECT_EQ(overlay.pixelColor(110, 55).alpha(), 0);
}

TEST(StrokePath, LooksTheSameRedrawnWhereItChanged)
{
    WXLCubicCurveAlgorithm algorithm;
    QImage grown = emptyOverlay();
    std::vector<QPointF> points;
    QRectF before;
    for (int i = 0; i < 150; ++i) { // over its own lines again and again, and with leaps
        points.emplace_back(150 + 120 * std::sin(0.31 * i), 150 + 120 * std::cos(0.29 * i * (1 + i / 100)));
        const QPainterPath stroke = strokePath(points, algorithm);
        const QRect changed = (before | unsettledBounds(stroke)).toAlignedRect();
        before = unsettledBounds(stroke);
        draw(grown, changed, strokePartWithin(stroke, changed));
    }
    QImage whole = emptyOverlay();
    draw(whole, whole.rect(), strokePath(points, algorithm));
    int largest = 0;
    for (int y = 0; y < whole.height(); ++y)
        for (int x = 0; x < whole.width(); ++x)
            largest = std::max(largest, std::abs(qAlpha(whole.pixel(x, y)) - qAlpha(grown.pixel(x, y))));
    EXPECT_LE(largest, 2);
}

TEST(StrokePath, CountsTheWidthOfTheLine)
{
    WXLCubicCurveAlgorithm algorithm;
    const QPainterPath line = strokePath({{20, 20}, {20, 80}, {20, 140}}, algorithm);
    EXPECT_TRUE(unsettledBounds(line).contains(QRectF(19, 19, 2, 122)));
    EXPECT_FALSE(strokePartWithin(line, {20.9, 60, 50, 50}).isEmpty());
    EXPECT_TRUE(strokePartWithin(line, {23, 60, 50, 50}).isEmpty());
    EXPECT_EQ(strokePartWithin(line, {0, 100, 50, 50}).elementCount(), 4); // the second half
}

} // namespace

// CanvasBenchmark   what the annotation canvas costs the main thread while a finger moves: smoothing a stroke of so many
// points, drawing one of 2,000 points on a phone's screen, from scratch and where its last point changed it, and a dab of
// blur on two sizes of image.

#include <cmath>

#include <QPainter>
#include <benchmark/benchmark.h>

#include "Presentation/Screen/BlurDab.h"
#include "Presentation/Screen/StrokePath.h"

using namespace wexel;

namespace {

// Loops of handwriting that wander down the screen, a few pixels from point to point.
std::vector<QPointF> handwriting(int64_t count)
{
    std::vector<QPointF> points;
    points.reserve(count);
    for (int64_t i = 0; i < count; ++i) {
        const double t = 0.1 * static_cast<double>(i);
        points.emplace_back(195 + 140 * std::sin(0.13 * t) + 30 * std::cos(t),
                            422 + 360 * std::sin(0.031 * t) + 30 * std::sin(1.1 * t));
    }
    return points;
}

QImage screenshot(int64_t width, int64_t height)
{
    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7, y * 5, x * y));
    return image;
}

void smooth(benchmark::State &state)
{
    const auto points = handwriting(state.range(0));
    WXLCubicCurveAlgorithm algorithm;
    for ([[maybe_unused]] const auto &_ : state)
        benchmark::DoNotOptimize(algorithm.segmentsFromPoints(points).data());
}
BENCHMARK(smooth)->RangeMultiplier(10)->Range(100, 100'000);

void draw(QImage &overlay, const QRect &area, const QPainterPath &path)
{
    QPainter painter(&overlay);
    painter.setClipRect(area);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(area, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(strokePartWithin(path, area), strokePen(Qt::red));
}

void strokeFromScratch(benchmark::State &state)
{
    const auto points = handwriting(state.range(0));
    WXLCubicCurveAlgorithm algorithm;
    QImage overlay(390, 844, QImage::Format_ARGB32_Premultiplied);
    for ([[maybe_unused]] const auto &_ : state)
        draw(overlay, overlay.rect(), strokePath(points, algorithm));
}
BENCHMARK(strokeFromScratch)->Arg(2'000);

void strokeOnePointLonger(benchmark::State &state)
{
    auto points = handwriting(state.range(0));
    WXLCubicCurveAlgorithm algorithm;
    QImage overlay(390, 844, QImage::Format_ARGB32_Premultiplied);
    draw(overlay, overlay.rect(), strokePath(points, algorithm));
    const QPointF last = points.back();
    points.pop_back();
    const QRectF before = unsettledBounds(strokePath(points, algorithm));
    for ([[maybe_unused]] const auto &_ : state) {
        points.push_back(last);
        const QPainterPath path = strokePath(points, algorithm);
        draw(overlay, (before | unsettledBounds(path)).toAlignedRect(), path);
        points.pop_back();
    }
}
BENCHMARK(strokeOnePointLonger)->Arg(2'000);

void dab(benchmark::State &state)
{
    QImage image = screenshot(state.range(0), state.range(1));
    const QPointF middle(static_cast<double>(state.range(0)) / 2, static_cast<double>(state.range(1)) / 2);
    for ([[maybe_unused]] const auto &_ : state)
        benchmark::DoNotOptimize(blurCircleInImageViewAtPoint(image, middle));
}
BENCHMARK(dab)->Args({390, 844})->Args({3840, 2160});

} // namespace

BENCHMARK_MAIN();

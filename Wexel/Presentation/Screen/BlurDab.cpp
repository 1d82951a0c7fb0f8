#include "Presentation/Screen/BlurDab.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace wexel {

namespace {

constexpr double halfDiameter = blurDiameterSize / 2.0; // and the step from dab to dab, so that they overlap
constexpr double standardDeviation = 1.7;
constexpr int kernelRadius = 6; // three standard deviations
constexpr int kernelSize = 2 * kernelRadius + 1;
constexpr int channels = 4;

// Loops over rows are of constant length, so that compilers vectorise them; a clipped rectangle ignores their ends.
using Row = std::array<float, blurDiameterSize * channels>;
using Patch = std::array<Row, blurDiameterSize>;
using PaddedRow = std::array<float, (blurDiameterSize + 2 * kernelRadius) * channels>;
using Kernel = std::array<float, kernelSize>;

bool isFartherThanStep(const QPointF &distance)
{
    return distance.x() > halfDiameter || distance.y() > halfDiameter;
}

QPointF absolute(const QPointF &point)
{
    return {std::abs(point.x()), std::abs(point.y())};
}

const Kernel &gaussianKernel()
{
    static const Kernel kernel = [] {
        std::array<double, kernelSize> weights;
        double sum = 0;
        for (int i = 0; i < kernelSize; ++i) {
            const double x = (i - kernelRadius) / standardDeviation;
            sum += weights[i] = std::exp(-x * x / 2);
        }
        Kernel result;
        std::transform(weights.begin(), weights.end(), result.begin(),
                       [sum](double weight) { return static_cast<float>(weight / sum); });
        return result;
    }();
    return kernel;
}

QRect patchAround(const QPointF &point, const QSize &imageSize)
{
    const QPointF origin(std::max(0.0, point.x() - halfDiameter), std::max(0.0, point.y() - halfDiameter));
    return QRect(origin.toPoint(), QSize(blurDiameterSize, blurDiameterSize)) & QRect(QPoint(), imageSize);
}

// The border pixels go on outside: what is transparent there would darken the borders.
void blurRow(const QRgb *pixels, int width, Row &result)
{
    PaddedRow padded;
    for (int i = 0; i < blurDiameterSize + 2 * kernelRadius; ++i) {
        const QRgb pixel = pixels[std::clamp(i - kernelRadius, 0, width - 1)];
        for (int channel = 0; channel < channels; ++channel)
            padded[i * channels + channel] = static_cast<float>((pixel >> 8 * channel) & 0xFF);
    }
    result.fill(0);
    for (int k = 0; k < kernelSize; ++k) {
        const float weight = gaussianKernel()[k];
        for (size_t i = 0; i < result.size(); ++i)
            result[i] += weight * padded[i + k * channels];
    }
}

Row blurColumns(const Patch &rows, int height, int y)
{
    Row result = {};
    for (int k = 0; k < kernelSize; ++k) {
        const Row &row = rows[std::clamp(y + k - kernelRadius, 0, height - 1)];
        const float weight = gaussianKernel()[k];
        for (size_t i = 0; i < result.size(); ++i)
            result[i] += weight * row[i];
    }
    return result;
}

// The part of a pixel within the disc, whose middle is (dx, dy) away from the disc's. The edge is taken as straight
// within a pixel; it leaves a triangle or a trapezium of the pixel on the side where the pixel's middle is not.
float coverage(double dx, double dy, double radius)
{
    const double distance = std::hypot(dx, dy);
    const double inside = radius - distance;
    if (std::abs(inside) >= 1 || distance == 0)
        return inside > 0 ? 1 : 0;
    const auto [flat, steep] = std::minmax({std::abs(dx) / distance, std::abs(dy) / distance});
    const double depth = std::max(0.0, (flat + steep) / 2 - std::abs(inside));
    const double area = depth < flat ? depth * depth / (2 * flat * steep) : (depth - flat / 2) / steep;
    return static_cast<float>(inside > 0 ? 1 - area : area);
}

QRgb composed(const float *above, float covered, QRgb below)
{
    const float kept = 1 - covered * above[channels - 1] / 255;
    QRgb result = 0;
    for (int channel = 0; channel < channels; ++channel) {
        const auto value = static_cast<float>((below >> 8 * channel) & 0xFF);
        result |= static_cast<QRgb>(qRound(covered * above[channel] + kept * value)) << 8 * channel;
    }
    return result;
}

} // namespace

bool isPointOutsideOfImageView(const QPointF &point)
{
    return point.x() == outsideOfImageViewPoint && point.y() == outsideOfImageViewPoint;
}

std::vector<QPointF> dabsTo(const QPointF &previous, const QPointF &point)
{
    if (isPointOutsideOfImageView(point))
        return {};
    std::vector<QPointF> dabs;
    if (!isPointOutsideOfImageView(previous)) {
        const double signX = point.x() >= previous.x() ? 1 : -1;
        const double signY = point.y() >= previous.y() ? 1 : -1;
        QPointF dab = previous;
        for (QPointF d = absolute(point - dab); isFartherThanStep(d); d = absolute(point - dab)) {
            const double longer = std::max(d.x(), d.y());
            dab += QPointF(signX * halfDiameter * (d.x() / longer), signY * halfDiameter * (d.y() / longer));
            dabs.push_back(dab);
        }
    }
    dabs.push_back(point);
    return dabs;
}

QRect blurCircleInImageViewAtPoint(QImage &image, const QPointF &point)
{
    const QRect patch = patchAround(point, image.size());
    if (patch.isEmpty())
        return {};
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    const auto pixelsOf
        = [&](int y) { return reinterpret_cast<QRgb *>(image.scanLine(patch.y() + y)) + patch.x(); };
    Patch rows;
    for (int y = 0; y < patch.height(); ++y)
        blurRow(pixelsOf(y), patch.width(), rows[y]);
    const double radius = patch.height() / 2.0;
    for (int y = 0; y < patch.height(); ++y) {
        const Row blurred = blurColumns(rows, patch.height(), y);
        QRgb *pixels = pixelsOf(y);
        for (int x = 0; x < patch.width(); ++x) {
            const float covered = coverage(x + 0.5 - patch.width() / 2.0, y + 0.5 - radius, radius);
            pixels[x] = composed(&blurred[x * channels], covered, pixels[x]);
        }
    }
    return patch;
}

} // namespace wexel

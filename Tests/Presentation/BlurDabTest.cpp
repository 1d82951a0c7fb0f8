#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <QPainter>

#include "Presentation/Screen/BlurDab.h"

using namespace wexel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

QImage noise(QImage::Format format = QImage::Format_RGB32)
{
    QImage image(90, 70, QImage::Format_ARGB32);
    std::mt19937 random(1);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, random());
    return image.convertToFormat(format).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

int channel(QRgb pixel, int shift)
{
    return static_cast<int>(pixel >> shift & 0xFF);
}

QRgb gaussianAt(const QImage &image, int x, int y)
{
    double sums[4] = {}, weights = 0;
    for (int dy = -12; dy <= 12; ++dy) {
        for (int dx = -12; dx <= 12; ++dx) {
            const double weight = std::exp(-(dx * dx + dy * dy) / (2 * 1.7 * 1.7));
            const QRgb pixel = reinterpret_cast<const QRgb *>(image.constScanLine(
                std::clamp(y + dy, 0, image.height() - 1)))[std::clamp(x + dx, 0, image.width() - 1)];
            for (int i = 0; i < 4; ++i)
                sums[i] += weight * channel(pixel, 8 * i);
            weights += weight;
        }
    }
    QRgb result = 0;
    for (int i = 0; i < 4; ++i)
        result |= static_cast<QRgb>(std::lround(sums[i] / weights)) << 8 * i;
    return result;
}

/// By sampling: the circles of QPainter are off by up to a twelfth of a pixel.
double partWithinDisc(const QSize &size, int x, int y)
{
    constexpr int samples = 16;
    int within = 0;
    for (int i = 0; i < samples * samples; ++i) {
        const double dx = x + (i % samples + 0.5) / samples - size.width() / 2.0;
        const double dy = y + (i / samples + 0.5) / samples - size.height() / 2.0;
        within += std::hypot(dx, dy) <= size.height() / 2.0 ? 1 : 0;
    }
    return static_cast<double>(within) / (samples * samples);
}

void cut(QRgb &pixel, double part)
{
    QRgb result = 0;
    for (const int shift : {0, 8, 16, 24})
        result |= static_cast<QRgb>(std::lround(part * channel(pixel, shift))) << shift;
    pixel = result;
}

/// Step by step on whole images: crop, blur, cut a disc out, draw it over.
QImage dabbed(const QImage &image, const QRect &rectangle)
{
    const QImage crop = image.copy(rectangle);
    QImage blurred(crop.size(), crop.format());
    for (int y = 0; y < crop.height(); ++y)
        for (int x = 0; x < crop.width(); ++x)
            reinterpret_cast<QRgb *>(blurred.scanLine(y))[x] = gaussianAt(crop, x, y);
    for (int y = 0; y < crop.height(); ++y)
        for (int x = 0; x < crop.width(); ++x)
            cut(reinterpret_cast<QRgb *>(blurred.scanLine(y))[x], partWithinDisc(crop.size(), x, y));
    QImage result = image;
    QPainter(&result).drawImage(rectangle.topLeft(), blurred);
    return result;
}

int largestDifference(const QImage &a, const QImage &b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto *rowA = reinterpret_cast<const QRgb *>(a.constScanLine(y));
        const auto *rowB = reinterpret_cast<const QRgb *>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x)
            for (const int shift : {0, 8, 16, 24})
                largest = std::max(largest, std::abs(channel(rowA[x], shift) - channel(rowB[x], shift)));
    }
    return largest;
}

struct Place {
    QPointF point;
    QRect rectangle;
};
const Place places[] = {
    {{40, 30}, {24, 14, 32, 32}}, // amid the image
    {{40.4, 30.6}, {24, 15, 32, 32}}, // rounded
    {{5, 5}, {0, 0, 32, 32}}, // shifted inwards
    {{85, 30}, {69, 14, 21, 32}}, // clipped at the right
    {{40, 66}, {24, 50, 32, 20}}, // and at the bottom
    {{89.9, 69.9}, {74, 54, 16, 16}},
};

TEST(BlurDab, IsWhatBlurringAndComposingWholeImagesGives)
{
    for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
        const QImage before = noise(format);
        for (const auto &[point, rectangle] : places) {
            QImage image = before;
            EXPECT_EQ(blurCircleInImageViewAtPoint(image, point), rectangle);
            EXPECT_LE(largestDifference(image, dabbed(before, rectangle)), 2) << rectangle.x();
            EXPECT_GT(largestDifference(image, before), 50);
        }
    }
}

TEST(BlurDab, LeavesOtherPixelsAndTheImagesNatureAlone)
{
    const QImage before = noise();
    QImage image = before;
    image.setDevicePixelRatio(2);
    blurCircleInImageViewAtPoint(image, {40, 30});
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            EXPECT_EQ(qAlpha(image.pixel(x, y)), 255);
            if (std::hypot(x + 0.5 - 40, y + 0.5 - 30) > 16.8) {
                EXPECT_EQ(image.pixel(x, y), before.pixel(x, y)) << x << ", " << y;
            }
        }
    }
    EXPECT_EQ(image.devicePixelRatio(), 2);
    EXPECT_EQ(image.format(), QImage::Format_ARGB32_Premultiplied);

    QImage other = before.convertToFormat(QImage::Format_RGB888);
    blurCircleInImageViewAtPoint(other, {40, 30});
    EXPECT_EQ(largestDifference(other, image), 0);
}

TEST(BlurDab, KeepsAnUnsharedImageWhereItIs)
{
    QImage image = noise();
    image.detach();
    const uchar *pixels = image.constBits();
    blurCircleInImageViewAtPoint(image, {40, 30});
    EXPECT_EQ(image.constBits(), pixels);
}

TEST(BlurDab, NeitherDarkensNorDrifts)
{
    for (const QColor &color : {QColor(200, 3, 127), QColor(255, 255, 255)}) {
        QImage image(90, 70, QImage::Format_ARGB32_Premultiplied);
        image.fill(color);
        const QImage before = image;
        for (const auto &[point, rectangle] : places)
            for (int i = 0; i < 20; ++i)
                blurCircleInImageViewAtPoint(image, point);
        EXPECT_EQ(largestDifference(image, before), 0);
    }
}

TEST(BlurDab, HasNoPlaceOutsideOfTheImage)
{
    QImage image = noise();
    const QImage before = image;
    EXPECT_TRUE(blurCircleInImageViewAtPoint(image, {200, 30}).isEmpty());
    EXPECT_EQ(image, before);
    QImage none;
    EXPECT_TRUE(blurCircleInImageViewAtPoint(none, {5, 5}).isEmpty());
}

TEST(BlurDabs, FillTheGapThatAFastFingerLeaves)
{
    EXPECT_THAT(dabsTo({10, 10}, {60, 20}),
                ElementsAre(QPointF(26, 13.2), QPointF(42, 16.4), QPointF(58, 19.6), QPointF(60, 20)));
    EXPECT_THAT(dabsTo({60, 20}, {10, 10}),
                ElementsAre(QPointF(44, 16.8), QPointF(28, 13.6), QPointF(12, 10.4), QPointF(10, 10)));
    EXPECT_THAT(dabsTo({50, 100}, {40, 60}), ElementsAre(QPointF(46, 84), QPointF(42, 68), QPointF(40, 60)));
    EXPECT_THAT(dabsTo({0, 40}, {40, 0}), ElementsAre(QPointF(16, 24), QPointF(32, 8), QPointF(40, 0)));
    EXPECT_THAT(dabsTo({7, 50}, {7, 20}), ElementsAre(QPointF(7, 34), QPointF(7, 20)));
}

TEST(BlurDabs, AreOneForAShortStep)
{
    EXPECT_THAT(dabsTo({10, 10}, {26, 26}), ElementsAre(QPointF(26, 26)));
    EXPECT_THAT(dabsTo({10, 10}, {26.001, 10}), ElementsAre(QPointF(26, 10), QPointF(26.001, 10)));
    EXPECT_THAT(dabsTo({10, 10}, {10, 10}), ElementsAre(QPointF(10, 10)));
}

TEST(BlurDabs, BeginAnewWhereTheFingerComesBack)
{
    EXPECT_THAT(dabsTo(pointOutsideOfImageView, {60, 20}), ElementsAre(QPointF(60, 20)));
    EXPECT_THAT(dabsTo({60, 20}, pointOutsideOfImageView), IsEmpty());
    EXPECT_TRUE(isPointOutsideOfImageView({-1, -1}));
    EXPECT_FALSE(isPointOutsideOfImageView({-1, 5}));
    EXPECT_FALSE(isPointOutsideOfImageView({5, -1}));
}

} // namespace

// The picture of the application, which a tester marks, removes and marks again.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include <QJsonArray>
#include <QJsonObject>

#include "DemoTest.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

const QColor red(0xff, 0x06, 0x46);
const QColor green(0x00, 0xc2, 0x74);
constexpr int reach = 24; // of a mark beyond its middle, with what JPEG's blocks make of it

/// A horizontal mark on the shown picture; its place in the screenshot.
struct Mark {
    QPoint from;
    int length;

    [[nodiscard]] QList<QPoint> onScreen(const QRect &image) const
    {
        return {image.topLeft() + from, image.topLeft() + from + QPoint(length, 0)};
    }
    [[nodiscard]] QRect area(int beyond) const
    {
        return QRect(from, QSize(length, 1)).adjusted(-beyond, -beyond, beyond, beyond);
    }
};

int difference(QRgb a, QRgb b)
{
    return std::max(
        {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

/// The part of the stroke's length where the screenshot has that colour.
double coverage(const QImage &image, const Mark &mark, const QColor &color)
{
    constexpr int tolerance = 90; // two pixels of a colour do not survive JPEG as they are
    int covered = 0;
    for (int x = 0; x < mark.length; ++x) {
        const QPoint place = mark.from + QPoint(x, 0);
        for (int y = -1; y <= 1; ++y) {
            if (difference(image.pixel(place + QPoint(0, y)), color.rgb()) < tolerance) {
                ++covered;
                break;
            }
        }
    }
    return double(covered) / mark.length;
}

/// How much is to be seen in that area: the differences of neighbouring pixels.
double detail(const QImage &image, const QRect &area)
{
    double sum = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x < area.right(); ++x)
            sum += std::abs(qGreen(image.pixel(x, y)) - qGreen(image.pixel(x + 1, y)));
    }
    return sum;
}

/// The largest difference outside of the marks.
int differenceElsewhere(const QImage &a, const QImage &b, const QList<Mark> &marks)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const bool isMarked = std::any_of(marks.begin(), marks.end(), [x, y](const Mark &mark) {
                return mark.area(reach).contains(x, y);
            });
            if (!isMarked)
                largest = std::max(largest, difference(a.pixel(x, y), b.pixel(x, y)));
        }
    }
    return largest;
}

using MarkingTest = DemoTest;

TEST_P(MarkingTest, WhatIsMarkedIsInTheScreenshotAndNothingElse)
{
    open();
    desktop.click(onScreen(demo().nowhere));
    tapButton();
    ASSERT_TRUE(flowOpens());
    const QRect image = imageOnScreen();
    desktop.click(image.center()); // a tap draws nothing, but makes the picture as it is shown the screenshot
    describe("plain");
    tapSubmit();
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    const QImage plain = receivedScreenshot(0);
    ASSERT_LE(std::abs(plain.width() - image.width()), 2);
    ASSERT_LE(std::abs(plain.height() - image.height()), 2);

    const int width = image.width();
    const int height = image.height();
    const Mark first{{width / 8, height / 5}, width / 2};
    const Mark second{{width / 8, height / 2}, width / 3};
    const Mark blur{{width / 6, height * 7 / 10}, width / 2};
    tapButton();
    ASSERT_TRUE(flowOpens());
    ASSERT_EQ(imageOnScreen(), image);
    desktop.drag(first.onScreen(image));
    chooseColor(green);
    desktop.drag(second.onScreen(image));
    select(Tool::Blur, green);
    desktop.drag(blur.onScreen(image));
    describe("marked");
    tapSubmit();
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    const QImage marked = receivedScreenshot(1);

    ASSERT_EQ(marked.size(), plain.size());
    EXPECT_GT(coverage(marked, first, red), 0.95);
    EXPECT_LT(coverage(plain, first, red), 0.1);
    EXPECT_GT(coverage(marked, second, green), 0.95);
    EXPECT_LT(coverage(plain, second, green), 0.1);
    const QJsonObject report = receiver.reports().last().toObject().value(u"report").toObject();
    EXPECT_EQ(report.value(u"description"), QStringLiteral("marked"));
    EXPECT_EQ(report.value(u"sessions").toArray().size(), 1) << "started, and active ever since";
    const double before = detail(plain, blur.area(12));
    EXPECT_GT(before, 2000) << "nothing there to blur";
    EXPECT_LT(detail(marked, blur.area(12)), 0.7 * before);
    EXPECT_LE(differenceElsewhere(plain, marked, {first, second, blur}), 4);

    tapButton();
    ASSERT_TRUE(flowOpens());
    EXPECT_TRUE(isSelected(Tool::Draw, green)) << "the last colour is kept";
}

TEST_P(MarkingTest, WhatWasRemovedIsAttachedAgainOnceItIsAnother)
{
    open();
    tapButton();
    ASSERT_TRUE(flowOpens());
    const QRect image = imageOnScreen();
    const Mark first{{image.width() / 8, image.height() / 5}, image.width() / 2};
    const Mark second{{image.width() / 8, image.height() / 2}, image.width() / 2};
    desktop.drag(first.onScreen(image));
    describe("kept");
    const auto button = removeButton();
    ASSERT_TRUE(button);
    desktop.click(*button);
    EXPECT_TRUE(spinUntil([this] { return !removeButton(); }));
    tapBack();
    arriveAt(Screen::Editor);
    tapNext();
    arriveAt(Screen::Compose);
    EXPECT_FALSE(removeButton()) << "removed, and still the same";
    tapBack();
    arriveAt(Screen::Editor);
    desktop.drag(second.onScreen(image));
    tapNext();
    arriveAt(Screen::Compose);
    EXPECT_TRUE(removeButton());
    tapSubmit();
    ASSERT_TRUE(flowGivesBackTo(mainWindow));

    const QImage screenshot = receivedScreenshot(0);
    EXPECT_GT(coverage(screenshot, first, red), 0.95);
    EXPECT_GT(coverage(screenshot, second, red), 0.95);
    EXPECT_EQ(receiver.descriptions(), QStringList(QStringLiteral("kept")));
    quit();
}

INSTANTIATE_TEST_SUITE_P(Demos, MarkingTest,
                         testing::Values(std::tuple(cafe(), false), std::tuple(editor(), true)),
                         DemoTest::nameOf);

} // namespace

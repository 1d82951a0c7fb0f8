// The reporting flow in the demos, as a tester meets it: opened by each of its triggers, closed, and used to mark a bug.

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

struct FlowTest : DemoTest {
    void shake() const
    {
        constexpr int swing = 80;
        QPoint place = stage().topLeft();
        for (int i = 0; i < 6 && !flow(); ++i) {
            place.rx() += i % 2 == 0 ? swing : -swing;
            const QRect before = stage();
            const QRect onStage = button();
            moveWindow(place);
            // Each movement has come to the application before the next begins.
            ASSERT_TRUE(spinUntil([&] { return stage() != before && button() == onStage; }));
        }
    }
    void dragInFromTheEdge() const
    {
        const QPoint edge = onScreen({stage().width() - 3, stage().height() / 2});
        desktop.drag({edge, edge - QPoint(90, 10)});
    }
    void moveWindow(const QPoint &place) const
    {
        desktop.xdotool(QStringLiteral("windowmove %1 %2 %3").arg(mainWindow).arg(place.x()).arg(place.y()));
    }
    void key(const char *keys) const { desktop.xdotool(QStringLiteral("key ") + QLatin1String(keys)); }
};

TEST_P(FlowTest, OpensByEachTrigger)
{
    open();
    QList<std::pair<const char *, std::function<void()>>> triggers{{"button", [this] { tapButton(); }},
                                                                   {"shaking", [this] { shake(); }}};
    if (isEditor()) {
        triggers.append({"Print", [this] { key("Print"); }});
        triggers.append({"edge", [this] { dragInFromTheEdge(); }});
        triggers.append({"menu", [this] { key("alt+h r"); }});
    }
    for (const auto &[name, trigger] : triggers) {
        SCOPED_TRACE(name);
        trigger();
        ASSERT_TRUE(flowOpens());
        key("alt+F4"); // the window manager's way to close it
        ASSERT_TRUE(flowGivesBackTo(mainWindow));
    }
    quit();
}

TEST_P(FlowTest, CloseGivesTheApplicationBackAndSendsNothing)
{
    open();
    tapButton();
    ASSERT_TRUE(flowOpens());
    const QRect image = imageOnScreen();
    desktop.drag({image.topLeft() + QPoint(20, 20), image.center()});
    const QRect before = stage();
    moveWindow({70, 40});
    ASSERT_TRUE(spinUntil([&] { return stage() != before; }));
    ASSERT_TRUE(flowOpens()) << "does not follow the window";
    tapClose();
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    EXPECT_TRUE(answers());
    quit();
    EXPECT_EQ(installation.storedReports(), QStringList());
    EXPECT_TRUE(receiver.reports().isEmpty());
}

TEST_P(FlowTest, WhatIsSubmittedOfflineArrivesAfterACrashAndARestart)
{
    open();
    receiver.kill();
    tapButton();
    ASSERT_TRUE(flowOpens());
    describe("late");
    tapSubmit();
    ASSERT_TRUE(spinUntil([this] { return installation.storedReports().size() == 1; }));
    kill();
    receiver.start();
    open();
    EXPECT_TRUE(spinUntil([this] { return installation.storedReports().isEmpty(); }));
    EXPECT_EQ(receiver.descriptions(), QStringList(QStringLiteral("late")));
    quit();
}

INSTANTIATE_TEST_SUITE_P(Demos, FlowTest,
                         testing::Values(std::tuple(cafe(), true), std::tuple(editor(), false)),
                         DemoTest::nameOf);

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

INSTANTIATE_TEST_SUITE_P(Demos, MarkingTest,
                         testing::Values(std::tuple(cafe(), false), std::tuple(editor(), true)),
                         DemoTest::nameOf);

} // namespace

#include <gtest/gtest.h>

#include <QWidget>

#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Invocation/WexelEdgePanRecognizer.h"
#include "Presentation/QuickHost.h"
#include "Presentation/Screens.h"

using namespace wexel;

namespace {

/// What a recogniser tells, as letters: Began, Changed, Ended, Cancelled, Failed.
struct EdgePanTest : testing::Test {
    std::string told;
    QPointF translation;
    std::function<void(PanGesture &)> more = [](PanGesture & /*gesture*/) {};
    WexelEdgePanRecognizer recognizer{qApp, [this](PanGesture &gesture) {
                                          told += " BCEXF"[static_cast<int>(gesture.state())];
                                          translation = gesture.translation();
                                          more(gesture);
                                      }};
    const std::unique_ptr<QPointingDevice> screen{QTest::createTouchDevice()};

    /// What is told of a drag of the mouse from there.
    std::string dragged(QWindow &window, const QPoint &from, const std::vector<QPoint> &ways)
    {
        std::vector<QPoint> places{window.mapToGlobal(from)};
        for (const QPoint &way : ways)
            places.push_back(window.mapToGlobal(from + way));
        drag(window, places);
        return std::exchange(told, {});
    }
    std::string swiped(QWindow &window, const QPoint &from, const std::vector<QPoint> &ways)
    {
        QTest::touchEvent(&window, screen.get()).press(7, from, &window);
        for (const QPoint &way : ways)
            QTest::touchEvent(&window, screen.get()).move(7, from + way, &window);
        QTest::touchEvent(&window, screen.get()).release(7, from + ways.back(), &window);
        return std::exchange(told, {});
    }
};

/// Counts what reaches it; takes no touches, so that Qt makes mouse events of them.
struct CountingWidget : QWidget {
    CountingWidget()
    {
        setGeometry(100, 100, 300, 400);
        show();
        EXPECT_TRUE(waitUntil([this] { return windowHandle()->isExposed(); }));
    }
    int presses = 0, moves = 0, releases = 0;

protected:
    void mousePressEvent(QMouseEvent * /*event*/) override { ++presses; }
    void mouseMoveEvent(QMouseEvent * /*event*/) override { ++moves; }
    void mouseReleaseEvent(QMouseEvent * /*event*/) override { ++releases; }
};

const std::vector<QPoint> inwards{{-5, 0}, {-15, 2}, {-30, 4}, {-50, 4}};

} // namespace

TEST_F(EdgePanTest, startsAtTheRightEdgeAndGoesInwards)
{
    CountingWidget host;
    QWindow &window = *host.windowHandle();
    EXPECT_EQ(dragged(window, {299, 200}, inwards), "BCCCE");
    EXPECT_EQ(translation, QPointF(-50, 4));
    EXPECT_EQ(dragged(window, {280, 200}, inwards), "BCCCE");
    EXPECT_EQ(dragged(window, {299, 200}, {{-90, 4}}), "BCE") << "as a busy host sees it";
    EXPECT_EQ(dragged(window, {279, 200}, inwards), "") << "a pixel too far in";
    EXPECT_EQ(dragged(window, {1, 200}, inwards), "");
    EXPECT_EQ(dragged(window, {290, 200}, {{2, 20}, {-50, 20}}), "F") << "a scroll bar's";
    EXPECT_EQ(dragged(window, {282, 200}, {{15, 0}, {-50, 0}}), "F") << "outwards";
    EXPECT_EQ(dragged(window, {290, 200}, {{-5, 0}}), "F") << "a tap";
    EXPECT_EQ(swiped(window, {299, 200}, inwards), "BCCCE") << "once, although Qt makes mouse events of it";
    EXPECT_EQ(host.presses, 9);
    EXPECT_EQ(host.moves, 5 * 4 + 1 + 2 + 2 + 1);
    EXPECT_EQ(host.releases, 9) << "the host gets all of it";
    more = [](PanGesture &gesture) {
        gesture.setEnabled(gesture.state() != GestureState::Changed);
        gesture.setEnabled(true);
    };
    EXPECT_EQ(dragged(window, {290, 200}, inwards), "BCX");
    window.setProperty(clickableWindowProperty, true);
    EXPECT_EQ(dragged(window, {290, 200}, inwards), "") << "in a window of our own";
}

TEST_F(EdgePanTest, watchesAQuickSceneAndOneOfSeveralFingers)
{
    QuickHost host;
    QQuickWindow *window = host.show(
        "Window { x: 100; y: 100; width: 300; height: 400; visible: true\n"
        "  property int presses; property int updates; property int releases\n"
        "  MouseArea { anchors.fill: parent; onPressed: presses++; onPositionChanged: updates++\n"
        "              onReleased: releases++ }\n"
        "  MultiPointTouchArea { anchors.fill: parent; mouseEnabled: false; onPressed: presses++\n"
        "                        onUpdated: updates++; onReleased: releases++ } }");
    EXPECT_EQ(dragged(*window, {299, 200}, inwards), "BCCCE");
    const auto touch = [&] { return QTest::touchEvent(window, screen.get()); };
    touch().press(1, {299, 200});
    touch().stationary(1).press(2, {295, 300});
    touch().move(1, {280, 200}).move(2, {100, 300});
    touch().stationary(1).release(2, {100, 300});
    touch().move(1, {250, 200});
    touch().release(1, {250, 200});
    EXPECT_EQ(told, "BCCE");
    EXPECT_EQ(translation, QPointF(-49, 0));
    EXPECT_EQ(window->property("presses").toInt(), 3);
    EXPECT_GE(window->property("updates").toInt(), 4 + 2) << "the host gets all of it";
    EXPECT_EQ(window->property("releases").toInt(), 3);
}

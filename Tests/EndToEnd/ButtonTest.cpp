// The floating button over the demos' windows.

#include <gtest/gtest.h>

#include <algorithm>

#include "DemoTest.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

constexpr QPoint initialOffset(15, 115); // from the left, and from the bottom to its upper edge

struct ButtonTest : DemoTest {
    /// True once the button's upper left corner is there on the stage, but for the rounding of a drag.
    [[nodiscard]] bool comesTo(const QPoint &place) const
    {
        return spinUntil([&] {
            const QRect now = button();
            return !now.isNull() && (now.topLeft() - place).manhattanLength() <= 2;
        });
    }
    void command(const char *name, const QString &arguments = {}) const
    {
        desktop.xdotool(QStringLiteral("%1 %2 %3").arg(QLatin1String(name)).arg(mainWindow).arg(arguments));
    }
    void resize(const QSize &size) const
    {
        command("windowsize", QStringLiteral("%1 %2").arg(size.width()).arg(size.height()));
        ASSERT_TRUE(spinUntil([&] { return stage().size() == size; }));
    }
};

TEST_P(ButtonTest, StaysWhereItIsDroppedAndLetsClicksBesideItThrough)
{
    open();
    EXPECT_TRUE(comesTo({initialOffset.x(), stage().height() - initialOffset.y()}));
    const QPoint beside
        = demo().spot + QPoint(12, 13); // so that the spot lies under the margin of its window
    dropButtonAt(beside);
    ASSERT_TRUE(comesTo(beside));
    EXPECT_EQ(desktop.activeWindow(), mainWindow);
    ASSERT_TRUE(buttonWindow()->geometry.contains(onScreen(demo().spot)));
    EXPECT_TRUE(answers());
    EXPECT_EQ(desktop.activeWindow(), mainWindow);
    quit();
    open();
    EXPECT_TRUE(comesTo(beside));
    tapButton();
    EXPECT_TRUE(flowOpens());
}

TEST_P(ButtonTest, FollowsTheWindow)
{
    open();
    const QSize size = stage().size();
    const QPoint place(size.width() - 140, size.height() - 90);
    dropButtonAt(place);
    ASSERT_TRUE(comesTo(place));

    const QRect before = stage();
    command("windowmove", QStringLiteral("60 30"));
    ASSERT_TRUE(spinUntil([&] { return stage() != before; }));
    EXPECT_TRUE(comesTo(place));
    resize(demo().smaller);
    EXPECT_TRUE(comesTo({std::min(place.x(), demo().smaller.width() - 100),
                         std::min(place.y(), demo().smaller.height() - 50)}));
    resize(size);
    EXPECT_TRUE(comesTo(place));

    command("windowminimize");
    EXPECT_TRUE(spinUntil([this] { return button().isNull(); }));
    command("windowactivate");
    EXPECT_TRUE(comesTo(place));
    ASSERT_TRUE(spinUntil([this] { return desktop.activeWindow() == mainWindow; }));
    desktop.toggleMaximized();
    ASSERT_TRUE(spinUntil([&] { return stage().width() > size.width(); }));
    EXPECT_TRUE(comesTo(place));
    quit();
}

INSTANTIATE_TEST_SUITE_P(Demos, ButtonTest,
                         testing::Combine(testing::Values(cafe(), editor()), testing::Bool()),
                         DemoTest::nameOf);

struct DialogTest : ButtonTest {
    /// True once that window has the keyboard and the button, which leaves the screen on its way.
    [[nodiscard]] bool buttonComesWith(quint32 window) const
    {
        const bool isThere = spinUntil([&] {
            const auto button = buttonWindow();
            return desktop.activeWindow() == window && button && button->owner == window;
        });
        desktop.settle(stage());
        return isThere;
    }
};

TEST_P(DialogTest, LeavesTheButtonUsable)
{
    open();
    desktop.xdotool(QStringLiteral("key ctrl+comma"));
    std::optional<Desktop::Window> dialog;
    ASSERT_TRUE(spinUntil([&] {
        dialog = windowTitled(QStringLiteral("Preferences"));
        return dialog.has_value();
    }));
    ASSERT_TRUE(buttonComesWith(dialog->id));
    tapButton();
    ASSERT_TRUE(flowOpens());
    tapClose();
    ASSERT_TRUE(flowGivesBackTo(dialog->id));
    desktop.xdotool(QStringLiteral("key Escape"));
    EXPECT_TRUE(buttonComesWith(mainWindow));
    EXPECT_FALSE(windowTitled(QStringLiteral("Preferences")));
    EXPECT_TRUE(comesTo({initialOffset.x(), stage().height() - initialOffset.y()}));
    tapButton();
    ASSERT_TRUE(flowOpens());
    tapClose();
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    quit();
}

INSTANTIATE_TEST_SUITE_P(Demos, DialogTest, testing::Combine(testing::Values(editor()), testing::Bool()),
                         DemoTest::nameOf);

} // namespace

// The reporting flow in the demos, as a tester meets it: opened by each of its triggers, left from each of its screens,
// submitted, and refused.

#include <gtest/gtest.h>

#include <functional>

#include <QJsonArray>

#include "DemoTest.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

struct FlowTest : DemoTest {
    /// Until the flow opens, or long enough for it.
    void shake() const
    {
        constexpr int swing = 80;
        const bool isOpen = flow().has_value();
        QPoint place = stage().topLeft();
        for (int i = 0; i < 6 && (isOpen || !flow()); ++i) {
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
    void begin() const
    {
        tapButton();
        EXPECT_TRUE(flowOpens());
    }
    /// From the editor.
    void inspect() const
    {
        describe("never sent");
        key("Tab Tab Tab Return");
        arriveAt(Screen::Inspect);
    }
    void submit(const char *words) const
    {
        begin();
        describe(words);
        tapSubmit();
        EXPECT_TRUE(flowGivesBackTo(mainWindow)) << words;
    }
    void expectNothingSent() const
    {
        EXPECT_EQ(installation.storedReports(), QStringList());
        EXPECT_TRUE(receiver.reports().isEmpty());
    }
};

TEST_P(FlowTest, OpensByEachTriggerButOnlyOnce)
{
    open();
    QList<std::pair<const char *, std::function<void()>>> triggers{{"shaking", [this] { shake(); }}};
    if (isEditor()) {
        triggers.append({"Print", [this] { key("Print"); }});
        triggers.append({"edge", [this] { dragInFromTheEdge(); }});
    }
    const auto reachable = triggers; // while the flow is there
    triggers.append({"button", [this] { tapButton(); }});
    if (isEditor())
        triggers.append({"menu", [this] { key("alt+h r"); }});
    for (const auto &[name, trigger] : triggers) {
        SCOPED_TRACE(name);
        trigger();
        ASSERT_TRUE(flowOpens());
        key("alt+F4"); // the window manager's way to close it
        ASSERT_TRUE(flowGivesBackTo(mainWindow));
    }

    begin();
    const QRect image = imageOnScreen();
    desktop.drag({image.topLeft() + QPoint(20, 20), image.center()});
    desktop.settle(stage());
    const QImage before = desktop.picture(stage());
    for (const auto &[name, trigger] : reachable) {
        SCOPED_TRACE(name);
        trigger();
        EXPECT_TRUE(flowOpens()) << "does not follow the window";
        desktop.settle(stage());
        EXPECT_EQ(desktop.picture(stage()), before);
    }
    tapClose();
    ASSERT_TRUE(flowGivesBackTo(mainWindow)) << "there is another";
    EXPECT_TRUE(answers());
    quit();
    expectNothingSent();
}

TEST_P(FlowTest, GivesTheApplicationBackFromEachScreenAndSendsNothing)
{
    open();
    begin();
    inspect();
    key("Escape");
    arriveAt(Screen::Compose);
    key("Escape");
    arriveAt(Screen::Editor);
    key("Escape");
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    begin();
    describe("never sent");
    key("alt+F4");
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    begin();
    inspect();
    key("alt+F4");
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    EXPECT_TRUE(answers());
    quit();
    expectNothingSent();
}

TEST_P(FlowTest, OffersOnlyTheWayOutOfAnArchivedApplication)
{
    openArchived();
    const QList<std::pair<const char *, std::function<void(QPoint)>>> ways{
        {"Dismiss", [this](QPoint button) { desktop.click(button); }},
        {"Enter", [this](QPoint) { key("Return"); }},
        {"Escape", [this](QPoint) { key("Escape"); }},
        {"alt+F4", [this](QPoint) { key("alt+F4"); }}};
    for (const auto &[name, leave] : ways) {
        SCOPED_TRACE(name);
        tapButton();
        const QPoint button = popupOpens();
        const QImage before = desktop.picture(stage());
        tapNext();
        tapClose();
        desktop.drag({onScreen({60, 90}), onScreen({200, 140})}); // on the picture of the application
        desktop.settle(stage());
        EXPECT_EQ(desktop.picture(stage()), before);
        leave(button);
        ASSERT_TRUE(flowGivesBackTo(mainWindow));
    }
    EXPECT_TRUE(answers());
    quit();
    expectNothingSent();
}

TEST_P(FlowTest, TakesAReportWhileAnotherIsOnItsWay)
{
    open();
    receiver.suspend();
    submit("first");
    begin();
    QList<Desktop::Window> earlier;
    ASSERT_TRUE(spinUntil([&] { return !(earlier = banners()).isEmpty(); }));
    EXPECT_TRUE(flowOpens()) << "below the banner";
    tapClose();
    ASSERT_TRUE(flowGivesBackTo(mainWindow));
    submit("second");
    QList<Desktop::Window> banner;
    ASSERT_TRUE(spinUntil([&] {
        banner = banners();
        return !banner.isEmpty() && !earlier.contains(banner.last());
    }));
    EXPECT_TRUE(answers());
    EXPECT_TRUE(banners().contains(banner.last())) << "went too soon to tell";
    EXPECT_TRUE(spinUntil([&] { return banners().isEmpty(); }));

    EXPECT_EQ(installation.storedReports().size(), 2);
    receiver.resume();
    EXPECT_TRUE(spinUntil([this] { return installation.storedReports().isEmpty(); }));
    EXPECT_EQ(receiver.descriptions(), (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
    quit();
}

TEST_P(FlowTest, WhatIsSubmittedOfflineArrivesAfterACrashAndARestart)
{
    open();
    receiver.kill();
    submit("late");
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

} // namespace

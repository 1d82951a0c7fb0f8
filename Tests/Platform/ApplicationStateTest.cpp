#include <gtest/gtest.h>

#include <QStringList>
#include <QWindow>

#include "Platform/ApplicationState.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

using Phase = ApplicationPhase;

TEST(ApplicationPhase, IsBackgroundWhenNothingShows)
{
    EXPECT_EQ(applicationPhase(Qt::ApplicationActive, true), Phase::Active);
    EXPECT_EQ(applicationPhase(Qt::ApplicationInactive, true), Phase::Inactive);
    EXPECT_EQ(applicationPhase(Qt::ApplicationActive, false), Phase::Background);
    EXPECT_EQ(applicationPhase(Qt::ApplicationHidden, true), Phase::Background);
    EXPECT_EQ(applicationPhase(Qt::ApplicationSuspended, true), Phase::Background);
}

TEST(ApplicationPhase, AnnouncesEachStep)
{
    const auto enter = ApplicationWillEnterForegroundNotification;
    const auto resign = ApplicationWillResignActiveNotification;
    const auto leave = ApplicationDidEnterBackgroundNotification;
    using Names = std::vector<QString>;
    EXPECT_EQ(notificationsFor(Phase::Active, Phase::Active), Names());
    EXPECT_EQ(notificationsFor(Phase::Active, Phase::Inactive), Names{resign});
    EXPECT_EQ(notificationsFor(Phase::Inactive, Phase::Active), Names());
    EXPECT_EQ(notificationsFor(Phase::Active, Phase::Background), (Names{resign, leave}));
    EXPECT_EQ(notificationsFor(Phase::Inactive, Phase::Background), Names{leave});
    EXPECT_EQ(notificationsFor(Phase::Background, Phase::Inactive), Names{enter});
    EXPECT_EQ(notificationsFor(Phase::Background, Phase::Active), Names{enter});
}

TEST(ApplicationState, FollowsTheHostsWindows)
{
    NotificationCenter center;
    QStringList heard;
    bool resigned = false;
    center.addObserver(ApplicationWillEnterForegroundNotification,
                       [&] { heard.append(QStringLiteral("foreground")); });
    center.addObserver(ApplicationDidEnterBackgroundNotification,
                       [&] { heard.append(QStringLiteral("background")); });
    center.addObserver(ApplicationWillResignActiveNotification, [&] { resigned = true; });
    const ApplicationState state(center);
    // What is queued has been handled when a block that was queued behind it runs.
    const auto settle = [] {
        for (int round = 0; round < 3; ++round) {
            bool reached = false;
            QMetaObject::invokeMethod(
                qApp, [&] { reached = true; }, Qt::QueuedConnection);
            ASSERT_TRUE(spinUntil([&] { return reached; }));
        }
    };

    settle();
    EXPECT_TRUE(heard.isEmpty()) << "a host that has shown nothing yet is not in the background";
    QWindow first;
    QWindow second;
    first.show();
    settle();
    EXPECT_TRUE(heard.isEmpty());
    EXPECT_FALSE(resigned);
    second.show(); // swapped for the first one: never in the background
    first.hide();
    settle();
    EXPECT_TRUE(heard.isEmpty());
    second.showMinimized();
    EXPECT_TRUE(spinUntil([&] { return heard == QStringList{QStringLiteral("background")}; }));
    second.showNormal();
    EXPECT_TRUE(spinUntil([&] { return heard.size() == 2; }));
    second.hide();
    EXPECT_TRUE(spinUntil([&] { return heard.size() == 3; }));
    EXPECT_EQ(heard,
              QStringList({QStringLiteral("background"), QStringLiteral("foreground"),
                           QStringLiteral("background")}));
}

} // namespace

#include <gtest/gtest.h>

#include "Business/HistoryKeys.h"
#include "Business/WXLSessionReporter.h"
#include "Platform/NotificationCenter.h"
#include "Platform/SerialQueue.h"
#include "Support/Histories.h"
#include "Support/Wait.h"
#include "Support/World.h"

using namespace wexel;

namespace {

struct SessionsTest : testing::Test {
    World &world = World::make(QStringLiteral("http://127.0.0.1:9/"));
    SetClock clock;
    WXLDateProvider dates{clock};
    std::vector<QDateTime> prunes;
    // Outlives the test: the notification centre keeps its observers.
    WXLSessionReporter &reporter
        = *new WXLSessionReporter(world.repository, dates, world.notifications,
                                  [this](const QDateTime &oldest) { prunes.push_back(oldest); });

    [[nodiscard]] QStringList states() const
    {
        return storedValues<Record>(world.repository, kWXLSessionHistoryKey);
    }
    void waitUntilStored()
    {
        for (int step = 0; step < 3; ++step)
            reporter.workingQueue().waitUntilDone();
    }
};

} // namespace

TEST_F(SessionsTest, RecordsTheStartASecondAgoAndEveryChange)
{
    world.notifications.post(ApplicationWillResignActiveNotification);
    world.notifications.post(ApplicationDidEnterBackgroundNotification);
    clock.time = clock.time.addSecs(5);
    world.notifications.post(ApplicationWillEnterForegroundNotification);
    waitUntilStored();
    EXPECT_EQ(
        states(),
        QStringList({QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("0")}));
    EXPECT_EQ(WXLSessionReporter::oldestSessionTimestamp(world.repository),
              WXLDateProvider::stringFromDate(clock.time.addSecs(-6)));
    const auto last = storedRecordsOf<Record>(world.repository, kWXLSessionHistoryKey).back();
    EXPECT_EQ(last->timestamp, dates.timestamp());
}

TEST_F(SessionsTest, PrunesBeforeTheOldestOfFifteen)
{
    for (int change = 0; change < 20; ++change) {
        clock.time = clock.time.addSecs(1);
        reporter.reportState(sessionResignedActive);
        waitUntilStored();
    }
    EXPECT_EQ(states().size(), 15);
    EXPECT_EQ(states().count(QStringLiteral("1")), 15);
    ASSERT_FALSE(prunes.empty());
    EXPECT_EQ(prunes.back(), clock.time.addSecs(-14));
    EXPECT_TRUE(std::is_sorted(prunes.begin(), prunes.end()));
}

TEST_F(SessionsTest, StartsAnewOverADamagedHistory)
{
    waitUntilStored();
    world.repository.setData("damaged", kWXLSessionHistoryKey);
    EXPECT_FALSE(WXLSessionReporter::oldestSessionTimestamp(world.repository));
    EXPECT_TRUE(WXLSessionReporter::sessionHistory(world.repository).isEmpty());
    NotificationCenter nobody;
    WXLSessionReporter next(world.repository, dates, nobody, [](const QDateTime &) {});
    for (int step = 0; step < 3; ++step)
        next.workingQueue().waitUntilDone();
    EXPECT_EQ(states(), QStringList(QStringLiteral("0")));
}

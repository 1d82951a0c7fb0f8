#include <thread>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>

#include "Helpers/WXLConnection.h"
#include "Platform/CapturedLog.h"
#include "Support/FakeReachability.h"
#include "Support/FakeScheduler.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

struct ConnectionTest : testing::Test {
    NotificationCenter center;
    FakeReachability *reachability = new FakeReachability(false);
    FakeScheduler scheduler;
    WXLConnection connection{std::unique_ptr<Reachability>(reachability), center, scheduler};
    QStringList ran;

    void park(const char *className, const char *method, const char *name)
    {
        connection.performWhenConnected({QString::fromLatin1(className), QString::fromLatin1(method)},
                                        [this, name] { ran.append(QString::fromLatin1(name)); });
    }
};

TEST(Reachability, IsUsableWhenItNeedsNoPersonToConnect)
{
    using F = ReachabilityFlag;
    EXPECT_FALSE(isConnected({}));
    EXPECT_FALSE(isConnected(F::IsWWAN)) << "not reachable at all";
    EXPECT_TRUE(isConnected(F::Reachable));
    EXPECT_FALSE(isConnected(F::Reachable | F::ConnectionRequired));
    EXPECT_TRUE(isConnected(F::Reachable | F::ConnectionRequired | F::IsWWAN));
    EXPECT_TRUE(isConnected(F::Reachable | F::ConnectionRequired | F::ConnectionOnDemand));
    EXPECT_TRUE(isConnected(F::Reachable | F::ConnectionRequired | F::ConnectionOnTraffic));
    EXPECT_FALSE(
        isConnected(F::Reachable | F::ConnectionRequired | F::ConnectionOnDemand | F::InterventionRequired));
}

TEST_F(ConnectionTest, ParksOneBlockForEachCallerUntilTheNetworkReturns)
{
    park("Uploader", "first", "replaced");
    park("Uploader", "first", "first");
    park("Uploader", "second", "second");
    EXPECT_TRUE(reachability->isScheduled());
    reachability->change(false);
    EXPECT_TRUE(ran.isEmpty()) << "still offline";

    reachability->change(true);
    ran.sort();
    EXPECT_EQ(ran, QStringList({QStringLiteral("first"), QStringLiteral("second")}));
    reachability->change(true);
    EXPECT_EQ(ran.size(), 2) << "each block runs once";
    EXPECT_TRUE(reachability->isScheduled()) << "monitoring goes on";
}

TEST_F(ConnectionTest, RunsAtOnceWhenConnectedAndDropsUnknownCallers)
{
    const CapturedLog log;
    reachability->change(true);
    park("Uploader", "now", "now");
    EXPECT_EQ(ran, QStringList(QStringLiteral("now")));
    EXPECT_FALSE(reachability->isScheduled());
    park("", "", "nobody");
    park("Uploader", "", "half");
    EXPECT_EQ(ran.size(), 1);
    EXPECT_EQ(log.lines(),
              QStringList({
                  QStringLiteral("WXLConnection - Performing block immediately as we are connected"),
                  QStringLiteral(
                      "WXLConnection - Could not determine the caller of the performWhenConnected method, "
                      "returning"),
                  QStringLiteral(
                      "WXLConnection - Incomplete caller information for the performWhenConnected method, "
                      "returning"),
              }));
}

TEST_F(ConnectionTest, CancelsByPartOfTheClassNameOrAll)
{
    park("WXLWexel", "retry", "entry");
    park("WXLWexelUploadOperation", "main", "operation");
    park("Other", "run", "other");
    connection.cancelPendingBlocksForInstance(QStringLiteral("WXLWexel"));
    connection.cancelPendingBlocksForInstance(QString()); // would match every key
    reachability->change(true);
    EXPECT_EQ(ran, QStringList(QStringLiteral("other")));

    reachability->change(false);
    park("Other", "run", "late");
    connection.cancelGlobalPendingBlocks();
    EXPECT_FALSE(reachability->isScheduled());
    center.post(WXLReachabilityChanged);
    reachability->change(true);
    EXPECT_EQ(ran.size(), 1);
}

TEST_F(ConnectionTest, RunsOnTheMainThreadWhenTheNetworkReturnsDuringTheParking)
{
    reachability->returnsWhenScheduled = true;
    std::atomic<QThread *> thread = nullptr;
    std::thread([&] {
        connection.performWhenConnected({QStringLiteral("A"), QStringLiteral("a")},
                                        [&] { thread = QThread::currentThread(); });
    }).join();
    ASSERT_TRUE(spinUntil([&] { return thread != nullptr; }));
    EXPECT_EQ(thread, QCoreApplication::instance()->thread());
}

TEST_F(ConnectionTest, LetsABlockParkAndCancelWhileItRuns)
{
    connection.performWhenConnected({QStringLiteral("A"), QStringLiteral("a")}, [this] {
        ran.append(QStringLiteral("a"));
        connection.cancelGlobalPendingBlocks();
    });
    park("B", "b", "b");
    reachability->change(true);
    EXPECT_EQ(ran, QStringList(QStringLiteral("a"))) << "b was cancelled by a";
}

} // namespace

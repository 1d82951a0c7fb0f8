#include <thread>

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QThread>

#include "Platform/MainScheduler.h"
#include "Platform/NotificationCenter.h"
#include "Platform/SerialQueue.h"
#include "Platform/ThreadPool.h"
#include "Support/Wait.h"

using namespace wexel;
using namespace std::chrono_literals;

namespace {

TEST(SerialQueue, RunsBlocksOfManyThreadsOneAtATimeAndEachThreadsInOrder)
{
    SerialQueue queue(QStringLiteral("test"));
    constexpr int threads = 4;
    constexpr int blocks = 500;
    std::vector<std::vector<int>> seen(threads); // touched by the queue's blocks only
    std::vector<std::thread> producers;
    for (int t = 0; t < threads; ++t) {
        producers.emplace_back([&, t] {
            for (int i = 0; i < blocks; ++i)
                queue.async([&, t, i] { seen[t].push_back(i); });
        });
    }
    for (auto &producer : producers)
        producer.join();
    queue.waitUntilDone();
    for (const auto &numbers : seen) {
        EXPECT_EQ(numbers.size(), static_cast<std::size_t>(blocks));
        EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    }
}

TEST(SerialQueue, FinishesWhatIsQueuedWhenItGoesAway)
{
    std::atomic<int> ran = 0;
    {
        SerialQueue queue(QStringLiteral("short-lived"));
        for (int i = 0; i < 100; ++i)
            queue.async([&] { ++ran; });
    }
    EXPECT_TRUE(spinUntil([&] { return ran == 100; }));
}

TEST(MainScheduler, RunsBlocksOfOtherThreadsOnTheMainThreadInOrder)
{
    auto &scheduler = MainScheduler::shared();
    std::vector<int> order;
    std::thread other([&] {
        scheduler.perform([&] { order.push_back(1); });
        scheduler.performAndWait([&] {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            order.push_back(2);
        });
        scheduler.perform([&] { order.push_back(3); });
    });
    EXPECT_TRUE(spinUntil([&] { return order.size() == 3; }));
    other.join();
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
    scheduler.performAndWait([&] { order.clear(); });
    EXPECT_TRUE(order.empty()) << "in place on the main thread";
}

TEST(MainScheduler, KeepsServingWhileABlockRunsAnEventLoop)
{
    auto &scheduler = MainScheduler::shared();
    QEventLoop dialog;
    scheduler.perform([&] { dialog.exec(); });
    scheduler.perform([&] { dialog.quit(); });
    bool afterwards = false;
    scheduler.perform([&] { afterwards = true; });
    EXPECT_TRUE(spinUntil([&] { return afterwards; }));
}

TEST(MainScheduler, FiresTimersUnlessInvalidated)
{
    auto &scheduler = MainScheduler::shared();
    bool fired = false;
    bool cancelledFired = false;
    const auto cancelled = scheduler.schedule(1ms, [&] { cancelledFired = true; });
    cancelled->invalidate();
    // Longer than a QTimer can count; must not fire early.
    const auto endless = scheduler.schedule(std::chrono::hours(24 * 365), [&] { cancelledFired = true; });
    (void)scheduler.schedule(5ms, [&] { fired = true; });
    EXPECT_TRUE(spinUntil([&] { return fired; }));
    EXPECT_FALSE(cancelledFired);
    endless->invalidate();
}

TEST(ThreadPool, RunsLaterOnAThreadOfItsOwn)
{
    std::atomic<bool> elsewhere = false;
    ThreadPool::runLater(
        1ms, [&, here = QThread::currentThread()] { elsewhere = QThread::currentThread() != here; });
    EXPECT_TRUE(spinUntil([&] { return elsewhere.load(); }));
}

TEST(NotificationCenter, TellsTheObserversOfANameInOrder)
{
    NotificationCenter center;
    std::vector<int> heard;
    center.addObserver(QStringLiteral("a"), [&] {
        heard.push_back(1);
        center.addObserver(QStringLiteral("a"), [&] { heard.push_back(3); }); // from the next time on
    });
    center.addObserver(QStringLiteral("a"), [&] { heard.push_back(2); });
    center.addObserver(QStringLiteral("b"), [&] { heard.push_back(9); });
    center.post(QStringLiteral("a"));
    EXPECT_EQ(heard, (std::vector{1, 2}));
    center.post(QStringLiteral("c"));
    center.post(QStringLiteral("a"));
    EXPECT_EQ(heard, (std::vector{1, 2, 1, 2, 3}));
}

} // namespace

#include <future>

#include <gtest/gtest.h>

#include "OfflineManager/OperationQueue.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

struct Recorded final : Operation {
    std::function<void()> work;
    void main() override { work(); }
};

TEST(OperationQueue, RunsOneAtATimeInOrderAndCountsTheUnfinished)
{
    SerialQueue underlying(QStringLiteral("underlying"));
    const auto queue = std::make_shared<OperationQueue>(underlying);
    std::mutex mutex;
    std::vector<std::size_t> counts;
    std::vector<int> order;
    std::atomic<int> running = 0;
    constexpr int number = 50;
    for (int i = 0; i < number; ++i) {
        const auto operation = std::make_shared<Recorded>();
        operation->work = [&, i] {
            EXPECT_EQ(++running, 1);
            const std::lock_guard lock(mutex);
            order.push_back(i);
            --running;
        };
        operation->completionBlock = [&] {
            const std::lock_guard lock(mutex);
            counts.push_back(queue->operationCount());
        };
        underlying.async([queue, operation] { queue->addOperation(operation); });
    }
    ASSERT_TRUE(spinUntil([&] {
        const std::lock_guard lock(mutex);
        return counts.size() == number;
    }));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_EQ(counts.back(), 0U) << "a finished operation does not count in its completion";
}

TEST(OperationQueue, StartsAfterTheBlockThatAddsAndLeavesTheUnderlyingQueueFree)
{
    SerialQueue underlying(QStringLiteral("underlying"));
    const auto queue = std::make_shared<OperationQueue>(underlying);
    std::promise<void> release;
    std::atomic<bool> started = false;
    std::atomic<bool> startedTooEarly = false;
    underlying.async([&] {
        const auto operation = std::make_shared<Recorded>();
        operation->work = [&] {
            started = true;
            release.get_future().wait();
        };
        queue->addOperation(operation);
        underlying.async([] {});
        startedTooEarly = started.load();
    });
    ASSERT_TRUE(spinUntil([&] { return started.load(); }));
    EXPECT_FALSE(startedTooEarly);
    underlying.waitUntilDone(); // while the operation still blocks
    EXPECT_EQ(queue->operationCount(), 1U);
    release.set_value();
    EXPECT_TRUE(spinUntil([&] { return queue->operationCount() == 0; }));
}

} // namespace

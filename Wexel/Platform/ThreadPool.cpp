#include "Platform/ThreadPool.h"

#include <deque>
#include <mutex>

#include <QThreadPool>

#include "Platform/ApplicationEnd.h"
#include "Platform/BackgroundThread.h"

namespace wexel {

namespace {

// Strands wait for their turn beyond this; an upload in flight holds one thread. Each costs the host 0.1 MB and more.
constexpr int maximumThreads = 4;
constexpr int idleMilliseconds = 1000;

QThreadPool &pool()
{
    static auto *instance = [] {
        auto *created = new QThreadPool; // never destroyed: work may still run during static destruction
        created->setObjectName(QStringLiteral("wexel"));
        created->setMaxThreadCount(maximumThreads);
        created->setExpiryTimeout(idleMilliseconds);
        ApplicationEnd::perform(ApplicationEnd::Phase::Work, [created] {
            created->waitForDone(static_cast<int>(ThreadPool::endingLimit.count()));
        });
        return created;
    }();
    return *instance;
}

/// Blocks on their way to a thread.
struct Waiting {
    std::mutex mutex; // guards `blocks`
    std::deque<std::function<void()>> blocks;
};

Waiting &waiting()
{
    static auto *instance = new Waiting; // as the pool
    return *instance;
}

/// While a repeated block runs: where its thread collects what it hands to the pool.
thread_local std::deque<std::function<void()>> *collected = nullptr;

/// Runs the block, then what it handed to the pool, on this thread: one thread wakes up for a sample, not one for each
/// history that it goes to.
void runCollecting(const std::function<void()> &block)
{
    std::deque<std::function<void()>> blocks;
    collected = &blocks;
    block();
    for (; !blocks.empty(); blocks.pop_front())
        blocks.front()();
    collected = nullptr;
}

void runNext()
{
    std::function<void()> block;
    {
        const std::lock_guard lock(waiting().mutex);
        block = std::move(waiting().blocks.front());
        waiting().blocks.pop_front();
    }
    block();
}

} // namespace

void ThreadPool::run(std::function<void()> block)
{
    if (collected)
        return collected->push_back(std::move(block));
    // Handed over under a lock of our own, which ThreadSanitizer sees, unlike those within Qt.
    {
        const std::lock_guard lock(waiting().mutex);
        waiting().blocks.push_back(std::move(block));
    }
    pool().start(runNext);
}

void ThreadPool::runLater(std::chrono::milliseconds delay, std::function<void()> block)
{
    BackgroundThread::shared().performLater(delay, [block = std::move(block)] { run(block); });
}

void ThreadPool::runEvery(std::chrono::milliseconds interval, std::function<void()> block)
{
    BackgroundThread::shared().performEvery(
        interval, [block = std::move(block)] { run([block] { runCollecting(block); }); });
}

} // namespace wexel

#include "Platform/ThreadPool.h"

#include <QThreadPool>

#include "Platform/ApplicationEnd.h"
#include "Platform/BackgroundThread.h"

namespace wexel {

namespace {

constexpr int maximumThreads
    = 16; // strands wait for their turn beyond this; an upload in flight holds one thread
constexpr int idleMilliseconds = 5000;

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

} // namespace

void ThreadPool::run(std::function<void()> block)
{
    pool().start(std::move(block));
}

void ThreadPool::runLater(std::chrono::milliseconds delay, std::function<void()> block)
{
    BackgroundThread::shared().performLater(delay, [block = std::move(block)] { run(block); });
}

} // namespace wexel

#include "Platform/ApplicationEnd.h"

#include <atomic>
#include <map>
#include <mutex>
#include <utility>

#include <QCoreApplication>
#include <QThread>

namespace wexel {

namespace {

struct Registry {
    std::mutex mutex; // guards `blocks`
    std::multimap<ApplicationEnd::Phase, std::function<void()>> blocks;
    std::atomic<bool> begun = false;
};

void end();

Registry &registry()
{
    static auto *instance = [] {
        qAddPostRoutine(end);
        return new Registry; // never destroyed: the library's threads may outlive static destruction
    }();
    return *instance;
}

auto takeBlocks()
{
    const std::lock_guard lock(registry().mutex);
    return std::exchange(registry().blocks, {});
}

void end()
{
    registry().begun = true;
    // The last work may start what has to end, too.
    for (auto blocks = takeBlocks(); !blocks.empty(); blocks = takeBlocks()) {
        for (const auto &[phase, block] : blocks)
            block();
    }
}

/// A host that leaves through std::exit never destroys its application object. The main thread's own objects are then
/// destroyed before any static one, while an atexit function would come after statics that Qt made later and that the
/// library's threads still use.
void endWithThisThread()
{
    struct AtThreadEnd {
        ~AtThreadEnd() { end(); }
    };
    const auto *application = QCoreApplication::instance();
    if (application != nullptr && application->thread() == QThread::currentThread())
        static thread_local const AtThreadEnd atThreadEnd;
}

} // namespace

void ApplicationEnd::perform(Phase phase, std::function<void()> block)
{
    const std::lock_guard lock(registry().mutex);
    if (registry().begun) // for an application object that came after the one that ended
        qAddPostRoutine(end);
    endWithThisThread();
    registry().blocks.emplace(phase, std::move(block));
}

bool ApplicationEnd::hasBegun()
{
    return registry().begun;
}

} // namespace wexel

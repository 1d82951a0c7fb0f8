#include "Platform/DetachedThread.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include <unistd.h>

#include "Platform/ApplicationEnd.h"

namespace wexel {

namespace {

struct Running {
    std::mutex mutex; // guards `count`
    std::condition_variable finished;
    int count = 0;
};

Running &running()
{
    static auto *instance = [] {
        auto *created = new Running; // never destroyed, see ApplicationEnd
        // Most calls are a matter of milliseconds: let them leave Qt before its statics go. One that hangs is left.
        ApplicationEnd::perform(ApplicationEnd::Phase::Network, [created] {
            constexpr std::chrono::milliseconds limit{300};
            std::unique_lock lock(created->mutex);
            created->finished.wait_for(lock, limit, [created] { return created->count == 0; });
        });
        return created;
    }();
    return *instance;
}

void count(int change)
{
    const std::lock_guard lock(running().mutex);
    running().count += change;
    running().finished.notify_all();
}

} // namespace

bool runDetached(std::function<void()> block)
{
    count(1);
    try {
        std::thread([block = std::move(block)] {
            block();
            count(-1);
            // Qt may be in the middle of its static destruction: neither the block's captures nor what Qt keeps for
            // this thread are destroyed then. The thread goes with the process.
            while (ApplicationEnd::hasBegun())
                pause();
        }).detach();
    } catch (const std::system_error &) {
        count(-1);
        return false;
    }
    return true;
}

} // namespace wexel

#include "Platform/DetachedThread.h"

#include <system_error>
#include <thread>
#include <utility>

#include <unistd.h>

#include "Platform/ApplicationEnd.h"

namespace wexel {

bool runDetached(std::function<void()> block)
{
    try {
        std::thread([block = std::move(block)] {
            block();
            // Qt may be in the middle of its static destruction: neither the block's captures nor what Qt keeps for
            // this thread are destroyed then. The thread goes with the process.
            while (ApplicationEnd::hasBegun())
                pause();
        }).detach();
    } catch (const std::system_error &) {
        return false;
    }
    return true;
}

} // namespace wexel

#pragma once

#include <chrono>
#include <functional>

namespace wexel {

/// The library's own threads, apart from the host's global pool. Threads start on demand and end when idle.
/// Thread-safe.
class ThreadPool
{
public:
    /// How long the end of the application waits for running work, such as a report being saved.
    static constexpr std::chrono::milliseconds endingLimit{2000};

    static void run(std::function<void()> block);
    /// Runs the block on one of the threads after a delay; costs nothing until then.
    static void runLater(std::chrono::milliseconds delay, std::function<void()> block);
    /// Runs the block at once and then every `interval` until the application ends. What it hands to the pool runs after
    /// it on the same thread, so it must be short.
    static void runEvery(std::chrono::milliseconds interval, std::function<void()> block);
};

} // namespace wexel

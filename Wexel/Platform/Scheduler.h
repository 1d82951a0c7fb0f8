#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace wexel {

/// A pending one-shot timer. `invalidate` may be called from any thread; called on the thread that the timer fires
/// on, the block is certain not to run afterwards.
class Timer
{
public:
    virtual ~Timer() = default;
    virtual void invalidate() = 0;
};

/// Runs blocks on the main thread, now or later. Thread-safe. Once the application object is going away blocks are
/// dropped, and `performAndWait` returns without having run its block.
class Scheduler
{
public:
    virtual ~Scheduler() = default;

    /// Asynchronously on the main thread.
    virtual void perform(std::function<void()> block) = 0;
    /// Synchronously on the main thread; runs in place when called there.
    virtual void performAndWait(const std::function<void()> &block) = 0;
    /// Once, after `delay`, on the main thread. The timer stays armed when the handle is dropped.
    virtual std::shared_ptr<Timer> schedule(std::chrono::milliseconds delay, std::function<void()> block) = 0;
};

} // namespace wexel

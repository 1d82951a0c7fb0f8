#pragma once

#include <chrono>
#include <functional>
#include <memory>

class QObject;

namespace wexel {

/// One thread with an event loop, for Qt objects that must not burden the main thread. It sleeps while
/// nothing is under way. Blocks run in the order they came. Thread-safe.
class BackgroundThread
{
public:
    /// The library's one background thread, started on first use and stopped when the application ends.
    static BackgroundThread &shared();

    /// An object that lives on the thread, for whatever wants to be started there.
    [[nodiscard]] QObject *context();
    /// Moves the object to the thread. Called on the thread that the object lives in.
    void adopt(QObject &object);
    void perform(std::function<void()> block);
    void performLater(std::chrono::milliseconds delay, std::function<void()> block);
    /// Runs the block at once and then every `interval`, until the thread stops.
    void performEvery(std::chrono::milliseconds interval, std::function<void()> block);
    /// Runs the block on the thread just before it stops, so that objects living there can be deleted there.
    void performAtEnd(std::function<void()> block);

private:
    BackgroundThread();
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace wexel

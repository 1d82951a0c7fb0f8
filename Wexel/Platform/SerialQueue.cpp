#include "Platform/SerialQueue.h"

#include <condition_variable>
#include <deque>
#include <mutex>

#include "Platform/ThreadPool.h"

namespace wexel {

struct SerialQueue::State {
    std::mutex mutex; // guards both members; never held while a block runs
    std::deque<std::function<void()>> blocks;
    bool running = false;
};

namespace {

template <typename State>
void drain(const std::shared_ptr<State> &state)
{
    for (;;) {
        std::function<void()> block;
        {
            const std::lock_guard lock(state->mutex);
            if (state->blocks.empty()) {
                state->running = false;
                return;
            }
            block = std::move(state->blocks.front());
            state->blocks.pop_front();
        }
        block();
    }
}

} // namespace

SerialQueue::SerialQueue(QString label) : m_label(std::move(label)), m_state(std::make_shared<State>()) { }

void SerialQueue::async(std::function<void()> block)
{
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->blocks.push_back(std::move(block));
        if (std::exchange(m_state->running, true))
            return;
    }
    ThreadPool::run([state = m_state] { drain(state); });
}

void SerialQueue::waitUntilDone()
{
    // Shared: the block may still be at it when the waiting thread is gone.
    struct Done {
        std::mutex mutex;
        std::condition_variable changed;
        bool isReached = false;
    };
    const auto done = std::make_shared<Done>();
    async([done] {
        const std::lock_guard lock(done->mutex);
        done->isReached = true;
        done->changed.notify_all();
    });
    std::unique_lock lock(done->mutex);
    done->changed.wait(lock, [&done] { return done->isReached; });
}

} // namespace wexel

#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

#include "Platform/ApplicationEnd.h"
#include "Platform/DetachedThread.h"

namespace wexel {

/// A question that is asked again and again, and may take long to answer, for callers who cannot wait for it.
/// Each time it is asked on a detached thread, and the last answer is kept. Thread-safe; may go away while it is
/// being asked.
template <typename Answer>
class Inquiry
{
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// Has the question asked, unless that is under way already.
    void begin(std::function<Answer()> question)
    {
        {
            const std::lock_guard lock(m_state->mutex);
            if (ApplicationEnd::hasBegun() || std::exchange(m_state->isUnderWay, true))
                return;
        }
        if (!runDetached([state = m_state, question = std::move(question)] { finish(*state, question()); }))
            finish(*m_state, lastAnswer());
    }
    /// A default one before the first answer.
    [[nodiscard]] Answer lastAnswer() const
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->answer;
    }
    /// The answer to the question under way; after the deadline, or with none under way, the last one.
    [[nodiscard]] Answer answerBefore(Deadline deadline) const
    {
        std::unique_lock lock(m_state->mutex);
        m_state->finished.wait_until(lock, deadline, [this] { return !m_state->isUnderWay; });
        return m_state->answer;
    }

private:
    struct State {
        std::mutex mutex; // guards the members below; never held while the question is asked
        std::condition_variable finished;
        bool isUnderWay = false;
        Answer answer{};
    };
    static void finish(State &state, Answer answer)
    {
        const std::lock_guard lock(state.mutex);
        state.answer = std::move(answer);
        state.isUnderWay = false;
        state.finished.notify_all();
    }

    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace wexel

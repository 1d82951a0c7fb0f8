#pragma once

#include <algorithm>
#include <atomic>
#include <mutex>
#include <vector>

#include "Platform/MainScheduler.h"

namespace wexel {

/// Blocks run on the real main thread; timers run on a time that only the test moves.
class FakeScheduler final : public Scheduler
{
public:
    void perform(std::function<void()> block) override { MainScheduler::shared().perform(std::move(block)); }
    void performAndWait(const std::function<void()> &block) override
    {
        MainScheduler::shared().performAndWait(block);
    }
    std::shared_ptr<Timer> schedule(std::chrono::milliseconds delay, std::function<void()> block) override
    {
        const std::lock_guard lock(m_mutex);
        m_timers.push_back(std::make_shared<FakeTimer>(m_now + delay, std::move(block)));
        return m_timers.back();
    }

    /// Moves the time and fires what is due, on the calling thread.
    void advance(std::chrono::milliseconds by)
    {
        std::vector<std::shared_ptr<FakeTimer>> due;
        {
            const std::lock_guard lock(m_mutex);
            m_now += by;
            const auto isDue = [this](const auto &timer) { return timer->at <= m_now; };
            std::copy_if(m_timers.begin(), m_timers.end(), std::back_inserter(due), isDue);
            std::erase_if(m_timers, isDue);
        }
        for (const auto &timer : due) {
            if (timer->valid.exchange(false))
                timer->block();
        }
    }

    /// Seconds until each armed timer fires, soonest first.
    [[nodiscard]] std::vector<long> armed() const
    {
        const std::lock_guard lock(m_mutex);
        std::vector<long> seconds;
        for (const auto &timer : m_timers) {
            if (timer->valid)
                seconds.push_back(
                    std::chrono::duration_cast<std::chrono::seconds>(timer->at - m_now).count());
        }
        std::sort(seconds.begin(), seconds.end());
        return seconds;
    }

private:
    struct FakeTimer final : Timer {
        FakeTimer(std::chrono::milliseconds at, std::function<void()> block) : at(at), block(std::move(block))
        {
        }
        void invalidate() override { valid = false; }
        std::chrono::milliseconds at;
        std::function<void()> block;
        std::atomic<bool> valid = true;
    };

    mutable std::mutex m_mutex;
    std::chrono::milliseconds m_now{0};
    std::vector<std::shared_ptr<FakeTimer>> m_timers;
};

} // namespace wexel

#pragma once

#include <atomic>
#include <mutex>

#include "Platform/Reachability.h"

namespace wexel {

/// Flags that the test sets.
class FakeReachability final : public Reachability
{
public:
    explicit FakeReachability(bool online) : m_online(online) { }
    std::optional<ReachabilityFlags> flags() const override
    {
        return m_online ? ReachabilityFlag::Reachable : ReachabilityFlags();
    }
    void schedule(std::function<void()> callback) override
    {
        const std::lock_guard lock(m_mutex);
        m_callback = std::move(callback);
        m_online = m_online || returnsWhenScheduled;
    }
    void unschedule() override { schedule({}); }

    /// The network returns unannounced, in the moment before changes are.
    std::atomic<bool> returnsWhenScheduled = false;

    [[nodiscard]] bool isScheduled() const
    {
        const std::lock_guard lock(m_mutex);
        return m_callback != nullptr;
    }
    /// Sets the state and announces the change, as the platform would on the main thread.
    void change(bool online)
    {
        m_online = online;
        std::function<void()> callback;
        {
            const std::lock_guard lock(m_mutex);
            callback = m_callback;
        }
        if (callback)
            callback();
    }

private:
    std::atomic<bool> m_online;
    mutable std::mutex m_mutex;
    std::function<void()> m_callback;
};

} // namespace wexel

#include "Business/CpuMeter.h"

#include <utility>

namespace wexel {

double cpuPercent(const ThreadTimes &before, const ThreadTimes &after, std::chrono::nanoseconds elapsed)
{
    if (elapsed.count() <= 0)
        return 0;
    std::chrono::nanoseconds used{0};
    for (const auto &[id, time] : after) {
        const auto last = before.find(id);
        // Less than before: the number was given to a new thread.
        used += last == before.end() || last->second > time ? time : time - last->second;
    }
    return 100.0 * static_cast<double>(used.count()) / static_cast<double>(elapsed.count());
}

CpuMeter::CpuMeter(const DeviceFacts &facts) : m_facts(facts), m_last(read()) { }

std::optional<double> CpuMeter::percentSinceLast()
{
    const std::lock_guard lock(m_mutex);
    const std::optional<Reading> before = std::exchange(m_last, read());
    if (!before || !m_last)
        return {};
    return cpuPercent(before->threads, m_last->threads, m_last->time - before->time);
}

std::optional<CpuMeter::Reading> CpuMeter::read() const
{
    Error ignored;
    auto threads = m_facts.threadTimes(ignored);
    return threads ? std::optional(Reading{std::move(*threads), Clock::now()}) : std::nullopt;
}

} // namespace wexel

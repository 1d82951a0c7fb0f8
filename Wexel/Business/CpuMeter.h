#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>

#include "Platform/DeviceFacts.h"

namespace wexel {

/// Processor use between two readings in percent of one core, summed over the threads. A thread that was idle adds
/// nothing, one that was started in between all it has used; what an ended one used last is lost.
[[nodiscard]] double cpuPercent(const ThreadTimes &before, const ThreadTimes &after,
                                std::chrono::nanoseconds elapsed);

/// Remembers the last reading. Thread-safe.
class CpuMeter
{
public:
    /// The first span begins here.
    explicit CpuMeter(const DeviceFacts &facts);

    /// Percent since the last call; nothing when the threads cannot be read.
    [[nodiscard]] std::optional<double> percentSinceLast();

private:
    using Clock = std::chrono::steady_clock;
    struct Reading {
        ThreadTimes threads;
        Clock::time_point time;
    };
    [[nodiscard]] std::optional<Reading> read() const;

    const DeviceFacts &m_facts;
    std::mutex m_mutex; // guards `m_last`
    std::optional<Reading> m_last;
};

} // namespace wexel

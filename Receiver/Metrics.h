#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace wexel::receiver {

/// What the program counts for whoever watches it: numbers only, nothing of what clients send. There is one, as there is
/// one log. Every thread may use it.
class Metrics
{
public:
    enum class Event {
        ReportStored,
        ReportRepeated, ///< one that was there already
        ReportDeleted,
        SignInFailed,
        StorageFailed,
    };

    static Metrics &instance();

    void count(Event event, std::uint64_t times = 1);
    /// A request that was answered. \a route is as it was added, with its method; empty for an address that has none.
    void countRequest(const std::string &route, int status, std::chrono::steady_clock::duration duration,
                      std::uint64_t bytesReceived);
    /// A connection that was refused before a request was read; it has no duration.
    void countRefusal(int status);

    /// A connection, for as long as it lives.
    class Connected
    {
    public:
        Connected() { ++instance().m_connections; }
        ~Connected() { --instance().m_connections; }
        Connected(const Connected &) = delete;
        Connected &operator=(const Connected &) = delete;
    };

    /// All of it in the text format of Prometheus.
    std::string text() const;

private:
    static constexpr std::size_t eventCount = 5;
    static constexpr std::array<double, 9> bounds = {0.005, 0.01, 0.05, 0.1, 0.5, 1, 5, 10, 60}; ///< seconds

    std::string requestText() const;
    std::string durationText() const;

    std::array<std::atomic<std::uint64_t>, eventCount> m_events = {};
    std::atomic<std::int64_t> m_connections = 0;
    mutable std::mutex m_mutex; ///< guards all below
    std::map<std::pair<std::string, int>, std::uint64_t> m_requests; ///< by route and status
    std::array<std::uint64_t, bounds.size() + 1> m_durations = {}; ///< up to each bound, and beyond the last
    double m_seconds = 0;
    std::uint64_t m_bytesReceived = 0;
};

} // namespace wexel::receiver

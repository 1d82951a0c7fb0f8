#pragma once

#include <chrono>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>

namespace wexel::receiver {

/// Slows down whoever guesses passwords: 5 failures a minute of one peer, 60 of all who never succeeded, and two hashes at
/// once, as each takes a core and 64 MiB. Every thread may use it.
class LoginThrottle
{
public:
    using Clock = std::chrono::steady_clock;

    /// One check of a password, for as long as it lives. It counts as a failure until it has succeeded, so that guesses made
    /// at once count from their start.
    class Attempt
    {
    public:
        Attempt(LoginThrottle &throttle, const std::string &peer, Clock::time_point now);
        ~Attempt();
        Attempt(const Attempt &) = delete;
        Attempt &operator=(const Attempt &) = delete;

        /// The time to wait, if the attempt must not be made.
        std::optional<std::chrono::seconds> refusal() const { return m_refusal; }
        void succeed();

    private:
        LoginThrottle &m_throttle;
        std::string m_peer;
        Clock::time_point m_time;
        std::optional<std::chrono::seconds> m_refusal;
    };

private:
    using Failures = std::deque<Clock::time_point>;

    std::optional<std::chrono::seconds> begin(const std::string &peer, Clock::time_point now);
    void forget(Clock::time_point now);

    std::mutex m_mutex; ///< guards all below
    std::map<std::string, Failures> m_peers; ///< never empty ones; oldest first
    Failures m_all;
    std::set<std::string> m_known; ///< peers that have succeeded; guesses from everywhere don't keep them out
    int m_running = 0;
};

/// Who is counted as one: an IPv4 address, or the network of 64 bits that an IPv6 address is in. \a peer may have
/// a port.
std::string throttledPeer(const std::string &peer);

} // namespace wexel::receiver

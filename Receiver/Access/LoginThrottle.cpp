#include "Access/LoginThrottle.h"

#include "Http/TrustedProxies.h"

#include <algorithm>

namespace wexel::receiver {

namespace {

constexpr std::chrono::minutes window{1};
constexpr std::size_t failuresOfOne = 5;
constexpr std::size_t failuresOfAll = 60;
constexpr int checksAtOnce = 2;

} // namespace

LoginThrottle::Attempt::Attempt(LoginThrottle &throttle, const std::string &peer, Clock::time_point now)
    : m_throttle(throttle)
    , m_peer(peer)
    , m_time(now)
    , m_refusal(throttle.begin(peer, now))
{
}

LoginThrottle::Attempt::~Attempt()
{
    const std::lock_guard lock(m_throttle.m_mutex);
    m_throttle.m_running -= m_refusal ? 0 : 1;
}

void LoginThrottle::Attempt::succeed()
{
    const auto removeFrom = [this](Failures &failures) {
        const auto own = std::find(failures.begin(), failures.end(), m_time);
        if (own != failures.end())
            failures.erase(own);
    };
    const std::lock_guard lock(m_throttle.m_mutex);
    m_throttle.m_known.insert(m_peer);
    removeFrom(m_throttle.m_all);
    const auto peer = m_throttle.m_peers.find(m_peer);
    if (peer == m_throttle.m_peers.end())
        return;
    removeFrom(peer->second);
    if (peer->second.empty())
        m_throttle.m_peers.erase(peer);
}

std::optional<std::chrono::seconds> LoginThrottle::begin(const std::string &peer, Clock::time_point now)
{
    const auto waitFor = [now](Clock::time_point oldest) {
        return std::chrono::ceil<std::chrono::seconds>(oldest + window - now);
    };
    const std::lock_guard lock(m_mutex);
    forget(now);
    const auto own = m_peers.find(peer);
    if (own != m_peers.end() && own->second.size() >= failuresOfOne)
        return waitFor(own->second.front());
    if (m_all.size() >= failuresOfAll && !m_known.contains(peer))
        return waitFor(m_all.front());
    if (m_running >= checksAtOnce)
        return std::chrono::seconds(1);
    ++m_running;
    m_peers[peer].push_back(now);
    m_all.push_back(now);
    return std::nullopt;
}

void LoginThrottle::forget(Clock::time_point now)
{
    const auto dropOld = [now](Failures &failures) {
        while (!failures.empty() && failures.front() + window <= now)
            failures.pop_front();
        return failures.empty();
    };
    dropOld(m_all);
    for (auto peer = m_peers.begin(); peer != m_peers.end();)
        peer = dropOld(peer->second) ? m_peers.erase(peer) : std::next(peer);
}

std::string throttledPeer(const std::string &peer)
{
    Poco::Net::IPAddress address;
    if (!readAddress(peer, address))
        return peer;
    if (address.family() == Poco::Net::AddressFamily::IPv4)
        return address.toString();
    return (address & Poco::Net::IPAddress(64, Poco::Net::AddressFamily::IPv6)).toString();
}

} // namespace wexel::receiver

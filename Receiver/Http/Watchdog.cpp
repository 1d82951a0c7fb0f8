#include "Http/Watchdog.h"

#include <algorithm>
#include <sys/socket.h>

namespace wexel::receiver {

namespace {

/// For those whose request does not arrive any more to be told so.
constexpr std::chrono::seconds timeToTell{1};

} // namespace

Watchdog::Watch::Watch(Watchdog &watchdog, int socket, std::size_t limit) : m_watchdog(watchdog)
{
    const std::lock_guard lock(m_watchdog.m_mutex);
    std::list<Entry> &entries = m_watchdog.m_entries;
    const auto welcome
        = std::count_if(entries.begin(), entries.end(), [](const Entry &entry) { return !entry.surplus; });
    m_isSurplus = static_cast<std::size_t>(welcome) >= limit;
    m_entry = entries.insert(entries.end(),
                             {socket, Phase::Receiving, Clock::time_point::max(), false, m_isSurplus});
}

Watchdog::Watch::~Watch()
{
    const std::lock_guard lock(m_watchdog.m_mutex);
    m_watchdog.m_entries.erase(m_entry);
    m_watchdog.m_changed.notify_all();
}

void Watchdog::Watch::enter(Phase phase, std::chrono::seconds longest)
{
    const std::lock_guard lock(m_watchdog.m_mutex);
    *m_entry = {m_entry->socket, phase, Clock::now() + longest, false, m_isSurplus};
    if (m_watchdog.m_stopping && phase == Phase::Idle)
        cut(*m_entry);
    m_watchdog.m_changed.notify_all();
}

void Watchdog::Watch::extend(std::chrono::seconds more)
{
    const std::lock_guard lock(m_watchdog.m_mutex);
    m_entry->deadline += more; // The watchdog looks at the former one and then sees this.
}

bool Watchdog::Watch::expired() const
{
    const std::lock_guard lock(m_watchdog.m_mutex);
    return m_entry->expired;
}

bool Watchdog::Watch::stopping() const
{
    const std::lock_guard lock(m_watchdog.m_mutex);
    return m_watchdog.m_stopping;
}

Watchdog::Watchdog() : m_thread([this] { run(); }) { }

Watchdog::~Watchdog()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
        m_changed.notify_all();
    }
    m_thread.join();
}

void Watchdog::stop(std::chrono::seconds grace)
{
    std::unique_lock lock(m_mutex);
    m_stopping = true;
    for (Entry &entry : m_entries) {
        if (entry.phase == Phase::Idle)
            cut(entry);
    }
    m_changed.wait_for(lock, grace, [this] { return m_entries.empty(); });
    for (Entry &entry : m_entries) {
        if (entry.phase == Phase::Receiving)
            cut(entry);
    }
    m_changed.wait_for(lock, timeToTell, [this] { return m_entries.empty(); });
    for (Entry &entry : m_entries) {
        entry.phase = Phase::Answering;
        cut(entry);
    }
    m_changed.wait(lock, [this] { return m_entries.empty(); });
}

void Watchdog::run()
{
    std::unique_lock lock(m_mutex);
    while (!m_ended) {
        const Clock::time_point next = nextDeadline();
        if (next == Clock::time_point::max())
            m_changed.wait(lock);
        else
            m_changed.wait_until(lock, next);
        for (Entry &entry : m_entries) {
            if (!entry.expired && entry.deadline <= Clock::now())
                cut(entry);
        }
    }
}

Watchdog::Clock::time_point Watchdog::nextDeadline() const
{
    Clock::time_point next = Clock::time_point::max();
    for (const Entry &entry : m_entries) {
        if (!entry.expired)
            next = std::min(next, entry.deadline);
    }
    return next;
}

void Watchdog::cut(Entry &entry)
{
    entry.expired = true;
    ::shutdown(entry.socket, entry.phase == Phase::Answering ? SHUT_RDWR : SHUT_RD);
}

} // namespace wexel::receiver

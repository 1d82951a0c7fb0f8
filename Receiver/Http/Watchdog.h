#pragma once

#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>
#include <thread>

namespace wexel::receiver {

/// Bounds the time that a peer can hold a connection, which time-outs of single reads can't do: a peer that sends a byte
/// a second meets each of those. When a phase takes too long the socket is shut down, so that the thread that blocks on it
/// goes on, whether it waits in plain HTTP or inside TLS.
class Watchdog
{
public:
    using Clock = std::chrono::steady_clock;

    enum class Phase {
        Idle, ///< before a request; too long, or the server stops: none can come any more
        Receiving, ///< too long: what arrived is all there is, an answer can still be sent
        Answering, ///< too long: the connection is cut
    };

private:
    struct Entry {
        int socket;
        Phase phase;
        Clock::time_point deadline;
        bool expired;
        bool surplus;
    };

public:
    /// One connection under watch, for as long as this object lives; it must be gone before the socket is closed.
    class Watch
    {
    public:
        /// \a limit is how many connections are welcome.
        Watch(Watchdog &watchdog, int socket, std::size_t limit);
        ~Watch();
        Watch(const Watch &) = delete;
        Watch &operator=(const Watch &) = delete;

        void enter(Phase phase, std::chrono::seconds longest);
        /// Gives the phase more time, if it has not taken too long already.
        void extend(std::chrono::seconds more);
        /// True if the phase took too long.
        bool expired() const;
        bool stopping() const;
        /// True if there were as many as are welcome already when this one came.
        bool isSurplus() const { return m_isSurplus; }

    private:
        Watchdog &m_watchdog;
        std::list<Entry>::iterator m_entry;
        bool m_isSurplus;
    };

    Watchdog();
    ~Watchdog();

    /// Cuts the idle connections, gives the others \a grace to end their request, ends the receiving of those that did not,
    /// and cuts what is left a second later. Returns when no connection is left.
    void stop(std::chrono::seconds grace);

private:
    void run();
    Clock::time_point nextDeadline() const;
    static void cut(Entry &entry);

    mutable std::mutex m_mutex; ///< guards all below, and the sockets against being closed while they are cut
    std::condition_variable m_changed;
    std::list<Entry> m_entries;
    bool m_stopping = false;
    bool m_ended = false;
    std::thread m_thread;
};

} // namespace wexel::receiver

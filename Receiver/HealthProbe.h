#pragma once

#include "Storage/Database.h"
#include "Storage/FileStore.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace wexel::receiver {

/// Tells whether database and files can be written to at once. One thread asks them for everybody, so that a database that
/// hangs holds no more than that. Every thread may use it.
class HealthProbe
{
public:
    /// Both must outlive it.
    HealthProbe(Database &database, FileStore &files);
    ~HealthProbe();
    HealthProbe(const HealthProbe &) = delete;
    HealthProbe &operator=(const HealthProbe &) = delete;

    enum class Fault { None, Database, Files };

    /// What kept a round trip that began after the call from succeeding within \a patience.
    Fault fault(std::chrono::milliseconds patience);

private:
    void run();
    bool succeeds(Fault part);
    Fault roundTrip();

    Database &m_database;
    FileStore &m_files;
    std::mutex m_mutex; ///< guards all below but the thread
    std::condition_variable m_changed;
    std::uint64_t m_asked = 0; ///< number of the last round trip that somebody waits for
    std::uint64_t m_begun = 0;
    std::uint64_t m_ended = 0; ///< like m_begun, counts them
    Fault m_fault = Fault::None; ///< of the last one that ended
    Fault m_asking = Fault::Database; ///< what is asked now, or was the last
    bool m_isStopping = false;
    std::thread m_thread;
};

} // namespace wexel::receiver

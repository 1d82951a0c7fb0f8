#include "HealthProbe.h"

#include "Log.h"
#include "Secrets.h"

namespace wexel::receiver {

using namespace Poco::Data::Keywords;

HealthProbe::HealthProbe(Database &database, FileStore &files)
    : m_database(database)
    , m_files(files)
    , m_thread([this] { run(); })
{
}

HealthProbe::~HealthProbe()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isStopping = true;
        m_changed.notify_all();
    }
    m_thread.join();
}

HealthProbe::Fault HealthProbe::fault(std::chrono::milliseconds patience)
{
    std::unique_lock lock(m_mutex);
    const std::uint64_t wanted = m_begun + 1;
    m_asked = wanted;
    m_changed.notify_all();
    const bool hasEnded = m_changed.wait_for(lock, patience, [&] { return m_ended >= wanted; });
    return hasEnded ? m_fault : m_asking;
}

void HealthProbe::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_isStopping || m_asked > m_begun; });
        if (m_isStopping)
            return;
        ++m_begun;
        lock.unlock();
        const Fault fault = roundTrip();
        lock.lock();
        m_ended = m_begun;
        m_fault = fault;
        m_changed.notify_all();
    }
}

HealthProbe::Fault HealthProbe::roundTrip()
{
    for (const Fault part : {Fault::Database, Fault::Files}) {
        {
            const std::lock_guard lock(m_mutex);
            m_asking = part;
        }
        if (!succeeds(part))
            return part;
    }
    return Fault::None;
}

/// Changes nothing, yet takes what an upload and a report take.
bool HealthProbe::succeeds(Fault part)
{
    try {
        if (part == Fault::Files)
            m_files.receive(randomId())->write("x");
        else
            m_database.write([](Poco::Data::Session &session) {
                // Of no row, but a server that only reads refuses it.
                session << "UPDATE administrator SET password = password WHERE id = 0", now;
            });
        return true;
    } catch (const std::exception &error) {
        logEvent("health_failed", {{"error", error.what()}});
        return false;
    }
}

} // namespace wexel::receiver

#include "Storage/Maintenance.h"

#include "Log.h"
#include "Metrics.h"
#include "Storage/Database.h"

#include <chrono>
#include <functional>

namespace wexel::receiver {

namespace {

constexpr std::int64_t second = 1000;
constexpr std::int64_t hour = 3600 * second;
constexpr std::int64_t day = 24 * hour;

/// After which no report will come for a file: the library uploads a report's files each time that it sends it.
constexpr std::int64_t unreportedFileAge = day;

/// Longer than an upload may take.
constexpr std::int64_t sweepGrace = 2 * hour;

constexpr std::size_t expiredAtOnce = 100;

void guarded(const std::function<void()> &work)
{
    try {
        work();
    } catch (const std::exception &error) {
        logEvent("maintenance_failed", {{"error", error.what()}});
    }
}

} // namespace

void Maintenance::sweep(std::int64_t now, std::int64_t bytesBefore)
{
    guarded([&] {
        const std::size_t unreported = m_reports.removeUnreportedFiles(now - unreportedFileAge);
        const std::size_t contents = m_files.sweep(bytesBefore, [this](const std::vector<std::string> &some) {
            return m_reports.unknownLocations(some);
        });
        logEvent("swept",
                 {{"unreported_files", std::to_string(unreported)}, {"contents", std::to_string(contents)}});
    });
}

bool Maintenance::applyRetention(std::int64_t now)
{
    bool mayHaveMore = false;
    guarded([&] {
        const std::vector<ExpiredReport> expired = m_reports.reportsBeyondRetention(now, expiredAtOnce);
        m_reports.removeExpired(expired, [&](const ExpiredReport &report) {
            Metrics::instance().count(Metrics::Event::ReportDeleted);
            logEvent("report_expired",
                     {{"id", std::to_string(report.id)},
                      {"bundle_id", report.bundleId},
                      {"age_days", std::to_string((now - report.received) / day)},
                      {"bytes", std::to_string(report.bytes)}});
        });
        mayHaveMore = expired.size() == expiredAtOnce;
    });
    return mayHaveMore;
}

HourlyMaintenance::HourlyMaintenance(Maintenance maintenance)
    : m_maintenance(maintenance)
    , m_thread([this] { run(); })
{
}

HourlyMaintenance::~HourlyMaintenance()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

bool HourlyMaintenance::isEnding()
{
    const std::lock_guard lock(m_mutex);
    return m_isEnding;
}

void HourlyMaintenance::run()
{
    std::unique_lock lock(m_mutex);
    do {
        lock.unlock();
        const std::int64_t now = currentMilliseconds();
        m_maintenance.sweep(now, now - sweepGrace);
        while (!isEnding() && m_maintenance.applyRetention(now)) { }
        lock.lock();
    } while (!m_changed.wait_for(lock, std::chrono::milliseconds(hour), [this] { return m_isEnding; }));
}

} // namespace wexel::receiver

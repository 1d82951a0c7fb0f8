#pragma once

#include "Storage/FileStore.h"
#include "Storage/ReportStore.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace wexel::receiver {

/// Removes what nobody needs and what is not to be kept longer. Failures are logged, and the next time tries again.
class Maintenance
{
public:
    Maintenance(FileStore &files, ReportStore &reports) : m_files(files), m_reports(reports) { }

    /// Removes the files that no report has named in time, and the bytes without a file that arrived before \a bytesBefore:
    /// the file of later ones may be about to be known. Times are in milliseconds since 1970.
    void sweep(std::int64_t now, std::int64_t bytesBefore);

    /// Removes some of the reports that their applications' retention does not keep, and logs each. False if these were all;
    /// the retention may have changed until the next call.
    bool applyRetention(std::int64_t now);

private:
    FileStore &m_files;
    ReportStore &m_reports;
};

/// Runs the maintenance now and every hour, in a thread of its own, for as long as it lives.
class HourlyMaintenance
{
public:
    explicit HourlyMaintenance(Maintenance maintenance);
    ~HourlyMaintenance();
    HourlyMaintenance(const HourlyMaintenance &) = delete;
    HourlyMaintenance &operator=(const HourlyMaintenance &) = delete;

private:
    void run();
    bool isEnding();

    Maintenance m_maintenance;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isEnding = false; ///< guarded by m_mutex
    std::thread m_thread; ///< last: it uses the others
};

} // namespace wexel::receiver

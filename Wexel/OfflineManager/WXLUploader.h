#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include <QString>

#include <Wexel/WXLWexelReportData.h>

#include "OfflineManager/OperationQueue.h"
#include "OfflineManager/WXLWexelUploadOperation.h"
#include "Platform/NotificationCenter.h"
#include "Platform/Scheduler.h"
#include "Platform/SerialQueue.h"

namespace wexel {

class WXLAPI;
class WXLAppRepository;
class WXLFileManager;

/// Turns finished reports into submissions that survive failures. One per process.
///
/// A report (its "job", named by the report file's identifier) is saved -> enqueued -> sending -> deleted on success,
/// kept on failure, or discarded with all others when the backend has archived the application. As a whole the
/// uploader is idle, running a pass, or waiting for a retry 10, 20, 40 ... seconds after a pass with a failure; going
/// to the background ends the wait, and returning to the foreground starts a pass.
///
/// Thread-safe. Saving, listing and enqueuing run on the working queue; sending runs beside it, so that a report
/// handed in while another one is on its way is on disk at once.
class WXLUploader
{
public:
    /// Starts a pass over the stored reports at once. The collaborators must outlive the uploader.
    WXLUploader(WXLFileManager &fileManager, WXLAPI &api, WXLAppRepository &appRepository,
                Scheduler &scheduler, NotificationCenter &notifications);
    WXLUploader(const WXLUploader &) = delete;
    WXLUploader &operator=(const WXLUploader &) = delete;

    /// Saves the report and sends it. One that cannot be saved is sent all the same, once.
    void uploadData(std::shared_ptr<WXLWexelReportData> report);
    /// Sends every stored report.
    void startUnsentJobs();

    void appWillEnterForeground();
    void appDidEnterBackground();

private:
    using JobId = std::optional<QString>;

    void addApplicationStateObservers();
    void enqueueStoredReport(const QString &jobId);
    void startUploadOperationWithReportData(WXLWexelUploadOperation::ReportSource report, const JobId &jobId);
    void operationFinished(const WXLWexelUploadOperation &operation, const JobId &jobId);
    void passFinished();
    void retryUploadOperations();
    void clearTimer();

    WXLFileManager &m_fileManager;
    WXLAPI &m_api;
    WXLAppRepository &m_appRepository;
    Scheduler &m_scheduler;
    NotificationCenter &m_notifications;
    SerialQueue m_workingQueue;
    std::shared_ptr<OperationQueue> m_uploadOperationQueue;
    /// Whether the pass had a report to send. Touched by finished operations only, which come one at a time.
    bool m_hadReports = false;
    std::mutex m_mutex; // guards `m_timer`
    std::shared_ptr<Timer> m_timer;
};

} // namespace wexel

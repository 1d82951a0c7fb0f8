#include "OfflineManager/WXLUploader.h"

#include <utility>

#include "API/WXLErrors.h"
#include "Business/RetryState.h"
#include "Business/WXLAppRepository.h"
#include "OfflineManager/WXLFileManager.h"
#include "Platform/Log.h"

namespace wexel {

WXLUploader::WXLUploader(WXLFileManager &fileManager, WXLAPI &api, WXLAppRepository &appRepository,
                         Scheduler &scheduler, NotificationCenter &notifications)
    : m_fileManager(fileManager)
    , m_api(api)
    , m_appRepository(appRepository)
    , m_scheduler(scheduler)
    , m_notifications(notifications)
    , m_workingQueue(QStringLiteral("WXLUploader-working-queue"))
    , m_uploadOperationQueue(std::make_shared<OperationQueue>(m_workingQueue))
{
    m_workingQueue.async([this] { m_fileManager.removeAbandonedWrites(); });
    startUnsentJobs();
    addApplicationStateObservers();
}

void WXLUploader::addApplicationStateObservers()
{
    m_notifications.addObserver(ApplicationWillEnterForegroundNotification,
                                [this] { appWillEnterForeground(); });
    m_notifications.addObserver(ApplicationDidEnterBackgroundNotification,
                                [this] { appDidEnterBackground(); });
}

void WXLUploader::uploadData(std::shared_ptr<WXLWexelReportData> report)
{
    log(QStringLiteral("WXLUploader: Got request to upload data"));
    m_workingQueue.async([this, report = std::move(report)] {
        const auto jobId = m_fileManager.saveDataForReportData(*report);
        startUploadOperationWithReportData([report] { return report; }, jobId);
    });
}

void WXLUploader::startUnsentJobs()
{
    retryUploadNeeded = false;
    m_workingQueue.async([this] {
        const QStringList jobIds = m_fileManager.savedReports();
        if (jobIds.isEmpty())
            return log(QStringLiteral("WXLUploader: No saved offline jobs"));
        log(QStringLiteral("WXLUploader: Got %1 offline jobs to process").arg(jobIds.size()));
        for (const QString &jobId : jobIds)
            enqueueStoredReport(jobId);
    });
}

void WXLUploader::enqueueStoredReport(const QString &jobId)
{
    // Loaded when its turn comes: a long queue neither fills the memory nor holds up the saving of new reports.
    const auto load = [this, jobId] {
        auto report = m_fileManager.loadReportDataForIdentifier(jobId);
        if (!report && m_fileManager.hasReport(jobId))
            log(QStringLiteral("WXLUploader: Failed to fetch data for %1").arg(jobId));
        return report;
    };
    startUploadOperationWithReportData(load, jobId);
}

void WXLUploader::startUploadOperationWithReportData(WXLWexelUploadOperation::ReportSource report,
                                                     const JobId &jobId)
{
    if (!m_appRepository.clientAuthorized())
        return log(QStringLiteral("WXLUploader - Will not start upload, client is not authorized"));
    auto operation = std::make_shared<WXLWexelUploadOperation>(std::move(report), m_api);
    operation->completionBlock = [this, weak = std::weak_ptr(operation), jobId] {
        if (const auto finished = weak.lock())
            operationFinished(*finished, jobId);
    };
    log(QStringLiteral("WXLUploader: Adding operation to queue for job id %1").arg(logged(jobId)));
    m_uploadOperationQueue->addOperation(std::move(operation));
}

void WXLUploader::operationFinished(const WXLWexelUploadOperation &operation, const JobId &jobId)
{
    m_hadReports |= !operation.hadNothingToSend();
    if (operation.hadNothingToSend()) {
        // Sent or discarded since it was listed, or unreadable: the file, if any, stays as it is.
    } else if (operation.isUploadedSuccessfully()) {
        log(QStringLiteral("WXLUploader: Uploaded succesfully, removing job id %1").arg(logged(jobId)));
        m_fileManager.deleteReportDataForIdentifier(logged(jobId));
    } else if (operation.uploadErrorCode() == WXLErrorApplicationArchived) {
        log(QStringLiteral("WXLUploader: Upload failed, application archived, error code -> %1")
                .arg(operation.uploadErrorCode()));
        m_appRepository.setApplicationActive(false);
        m_fileManager.deleteAllLocalReportData();
    } else {
        log(QStringLiteral("WXLUploader: Upload failed, not removing job id %1").arg(logged(jobId)));
        retryUploadNeeded = true;
    }
    // A pass of nothing but unreadable files says nothing about the backend.
    if (m_uploadOperationQueue->operationCount() == 0 && std::exchange(m_hadReports, false))
        passFinished();
}

void WXLUploader::passFinished()
{
    if (retryUploadNeeded) {
        if (!timerRunning)
            retryUploadOperations();
        return;
    }
    log(QStringLiteral("WXLUploader: All upload operations completed succesfully"));
    clearTimer();
    timerRunning = false;
    delayInterval = initialDelayInterval;
}

void WXLUploader::retryUploadOperations()
{
    clearTimer();
    timerRunning = true;
    const std::int64_t seconds = delayInterval.load() * 2;
    delayInterval = seconds;
    log(QStringLiteral("WXLUploader - Will retry upload operation after %1").arg(seconds));
    m_scheduler.performAndWait([this, seconds] {
        auto timer = m_scheduler.schedule(std::chrono::seconds(seconds), [this] {
            log(QStringLiteral("WXLUploader - Retrying upload operation"));
            timerRunning = false;
            startUnsentJobs();
        });
        const std::lock_guard lock(m_mutex);
        m_timer = std::move(timer);
    });
}

void WXLUploader::clearTimer()
{
    const std::lock_guard lock(m_mutex);
    if (const auto timer = std::exchange(m_timer, nullptr))
        timer->invalidate();
}

void WXLUploader::appWillEnterForeground()
{
    log(QStringLiteral("WXLUploader - Starting offline jobs after application entered foreground"));
    startUnsentJobs();
}

void WXLUploader::appDidEnterBackground()
{
    log(QStringLiteral(
        "WXLUploader - Application entered background, invalidating timer and reseting delay times"));
    clearTimer();
    delayInterval = initialDelayInterval;
    timerRunning = false;
}

} // namespace wexel

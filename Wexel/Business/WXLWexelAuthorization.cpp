#include <utility>

#include "Business/RetryState.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLWexelPrivate.h"
#include "Helpers/WXLConnection.h"
#include "OfflineManager/WXLFileManager.h"
#include "OfflineManager/WXLUploader.h"
#include "Platform/ApplicationEnd.h"
#include "Platform/Log.h"

namespace wexel {

namespace {
const QString platform = QStringLiteral("iOS"); // what the backend knows the reports as
} // namespace

void WXLWexelPrivate::addObservers()
{
    m_with.notifications.addObserver(ApplicationWillEnterForegroundNotification,
                                     [this] { appWillEnterForeground(); });
    m_with.notifications.addObserver(ApplicationDidEnterBackgroundNotification,
                                     [this] { appDidEnterBackground(); });
}

void WXLWexelPrivate::authorizeWexel()
{
    log(QStringLiteral("WXLWexel - Started authorization procces"));
    if (!m_starter)
        return log(QStringLiteral("WXLWexel - Starter not set, canceling authorization"));
    m_starter->start([this](bool authorized) { authorizationFinished(authorized); });
}

void WXLWexelPrivate::authorizationFinished(bool authorized)
{
    // The end of the application abandons the request, which says nothing about the credentials.
    if (!authorized && ApplicationEnd::hasBegun())
        return;
    m_with.appRepository.setClientAuthorized(authorized);
    if (authorized) {
        delay = initialDelay;
        registerApplication();
        determineEnabled();
        // Made now at the latest, it sends what earlier runs left; made before, it holds what came in before this.
        if (!makeUploader())
            uploader().startUnsentJobs();
    } else if (!reauthorizationPending) {
        retryAuthorization();
    }
}

void WXLWexelPrivate::retryAuthorization()
{
    reauthorizationPending = true;
    if (!m_with.connection.hasConnectivity()) {
        const Caller caller{QStringLiteral("WXLWexel"), QStringLiteral("retryAuthorization")};
        m_with.connection.performWhenConnected(caller, [this] {
            log(QStringLiteral("WXLWexel - Retrying authorization after regained connection"));
            reauthorizationPending = false;
            clearTimer();
            delay = initialDelay;
            authorizeWexel();
        });
    }
    clearTimer();
    const std::int64_t seconds = delay.load() * 2;
    delay = seconds;
    log(QStringLiteral("WXLWexel - Will retry authorization after %1").arg(seconds));
    m_with.scheduler.perform([this] { retryAfter(delay); });
}

void WXLWexelPrivate::retryAfter(std::int64_t seconds)
{
    if (!reauthorizationPending)
        return; // cancelled on the way here
    auto timer = m_with.scheduler.schedule(std::chrono::seconds(seconds), [this] {
        log(QStringLiteral("WXLWexel - Retrying authorization"));
        reauthorizationPending = false;
        authorizeWexel();
    });
    const std::lock_guard lock(m_mutex);
    m_timer = std::move(timer);
}

void WXLWexelPrivate::clearTimer()
{
    const std::lock_guard lock(m_mutex);
    if (const auto timer = std::exchange(m_timer, nullptr))
        timer->invalidate();
}

void WXLWexelPrivate::registerApplication()
{
    m_with.api.registerApplication(m_with.infoPlist().hostApplicationBundleId(), platform, platform);
}

void WXLWexelPrivate::determineEnabled()
{
    m_with.api.getApplicationEnabled(m_with.infoPlist().hostApplicationBundleId(), platform, platform,
                                     [this](std::optional<bool> enabled) {
                                         if (!enabled)
                                             return;
                                         m_with.appRepository.setApplicationActive(*enabled);
                                         if (*enabled)
                                             return;
                                         log(QStringLiteral("WXLWexel: Application is archived."));
                                         fileManager().deleteAllLocalReportData();
                                     });
}

void WXLWexelPrivate::appWillEnterForeground()
{
    if (m_with.appRepository.clientAuthorized())
        return;
    log(QStringLiteral("WXLWexel - Starting reauth after entering foreground"));
    authorizeWexel();
}

void WXLWexelPrivate::appDidEnterBackground()
{
    if (m_with.appRepository.clientAuthorized() || !reauthorizationPending)
        return;
    log(QStringLiteral("WXLWexel - Entering background, cancel reauthorization actions"));
    m_with.connection.cancelGlobalPendingBlocks();
    clearTimer();
    reauthorizationPending = false;
    delay = initialDelay;
}

} // namespace wexel

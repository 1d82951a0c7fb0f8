#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include <QString>
#include <QUrl>

#include <Wexel/WXLWexel.h>

#include "API/WXLAPI.h"
#include "Business/WXLStarter.h"
#include "Platform/NotificationCenter.h"
#include "Platform/Scheduler.h"

namespace wexel {

class Flow;
class ReportAssembly;
class WXLAppRepository;
class WXLBlackBox;
class WXLConnection;
class WXLFileManager;
class WXLUploader;

/// What stands behind the public entry: the long-lived collaborators and the life of the authorisation.
///
/// Not started -> authorising (a request in flight) -> authorised, or failed with a retry armed (a timer, and when
/// offline also a block that waits for the network) -> authorising again. Going to the background cancels an armed
/// retry; returning to the foreground authorises at once.
///
/// Public functions are called on the main thread; the authorisation's outcome arrives on the session's.
class WXLWexelPrivate
{
public:
    /// Everything outlives the object.
    struct Collaborators {
        WXLAPI &api;
        WXLAppRepository &appRepository;
        WXLConnection &connection;
        Scheduler &scheduler;
        NotificationCenter &notifications;
        Flow &flow;
        ReportAssembly &reportAssembly;
        WXLBlackBox &blackBox;
        /// Has session states recorded from the first call on.
        std::function<void()> startSessions;
        WXLAPI::MakeInfoPlist infoPlist;
        QUrl documentsDirectory;
    };

    explicit WXLWexelPrivate(Collaborators collaborators);
    ~WXLWexelPrivate();
    WXLWexelPrivate(const WXLWexelPrivate &) = delete;
    WXLWexelPrivate &operator=(const WXLWexelPrivate &) = delete;

    void startWithInvocationEvents(unsigned events);
    /// Opens the reporting flow unless it is open.
    void display();
    void setBlackBoxEnabled(bool enabled);
    void autoReport(bool attachScreenshot, const std::optional<QString> &description);

    /// What a new report carries.
    [[nodiscard]] QVariantMap setupDefaultData() const;

    void authorizeWexel();
    void appWillEnterForeground();
    void appDidEnterBackground();

    /// Both made on first use, from any thread.
    [[nodiscard]] WXLFileManager &fileManager();
    WXLUploader &uploader();

    WXLWexel::PrepareData onPrepareData;

private:
    /// \return true when this call made it, which also starts a pass over the stored reports
    [[nodiscard]] bool makeUploader();
    void addObservers();
    void authorizationFinished(bool authorized);
    void retryAuthorization();
    void retryAfter(std::int64_t seconds);
    void clearTimer();
    void registerApplication();
    void determineEnabled();
    [[nodiscard]] std::shared_ptr<WXLWexelReportData> preparedReportData() const;
    [[nodiscard]] std::shared_ptr<WXLWexelFile> screenshotFile(bool attach) const;

    Collaborators m_with;
    bool m_isFlowOpen = false;
    std::unique_ptr<WXLStarter> m_starter;
    std::once_flag m_fileManagerOnce;
    std::unique_ptr<WXLFileManager> m_fileManager;
    std::once_flag m_uploaderOnce;
    std::unique_ptr<WXLUploader> m_uploader;
    std::mutex m_mutex; // guards `m_timer`
    std::shared_ptr<Timer> m_timer;
};

} // namespace wexel

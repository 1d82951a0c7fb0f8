#pragma once

#include <functional>
#include <mutex>
#include <optional>

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QUrl>

#include "API/WXLAPIReport.h"
#include "API/WXLAPIResponses.h"
#include "Business/WXLInfoPlist.h"
#include "Platform/Error.h"
#include "Platform/Scheduler.h"
#include "Platform/UrlSession.h"

namespace wexel {

/// The library's only HTTP client. It holds the access token; every request but the one for a token carries it, or
/// goes out without an Authorization header while there is none.
///
/// Nothing is retried here. Thread-safe. Completions run on the session's thread unless said otherwise.
class WXLAPI
{
public:
    using MakeInfoPlist = std::function<WXLInfoPlist()>;

    /// \param infoPlist asked afresh for the backend's address and the host's identifier at every request
    WXLAPI(UrlSession &session, Scheduler &scheduler, MakeInfoPlist infoPlist);

    /// Header fields that every request of the session carries unless it sets them itself.
    [[nodiscard]] static UrlSessionConfiguration sessionConfiguration();

    /// Asks for a token with the client-credentials grant. Completes with a response when the answer holds a token,
    /// whatever its status; any answer with a body replaces the held token, by none if it holds none.
    void authenticateWith(
        const std::optional<QString> &clientId, const std::optional<QString> &secret,
        std::function<void(std::optional<WXLAPIAuthResponse>, std::optional<Error>)> onCompletion);

    /// Completes with the file's address, or with an error, or with neither when the answer makes no sense.
    void uploadFile(const WXLAPIReportFile &file,
                    std::function<void(std::optional<QUrl>, std::optional<Error>)> onCompletion);

    /// Uploads the report's files, all at once, waits for them and posts the report. Blocks the calling thread until
    /// the uploads have answered; never call it on the main thread. When a file has no address afterwards the report
    /// is not posted, and the error of the upload that finished last is passed on, which may be none.
    void sendReport(const WXLAPIReport &report, std::function<void(std::optional<Error>)> onCompletion);

    /// Completes with neither when the backend has no branding (404).
    void getBrandingOnCompletion(
        std::function<void(std::optional<WXLAPIBrandingResponse>, std::optional<Error>)> onCompletion);

    /// Whether reporting is enabled; nothing when the backend could not be asked. Only status 404 disables.
    /// Completes on the main thread.
    void getApplicationEnabled(const std::optional<QString> &bundleId, const QString &operatingSystem,
                               const QString &platform, std::function<void(std::optional<bool>)> completion);

    /// Makes the application known to the backend; the outcome is only logged.
    void registerApplication(const std::optional<QString> &bundleId, const QString &operatingSystem,
                             const QString &platform);

    [[nodiscard]] std::optional<QString> accessToken() const;

    /// JSON bytes with readable indentation and bare slashes.
    [[nodiscard]] static QByteArray bodyDataFromDictionary(const QJsonObject &dictionary);

private:
    [[nodiscard]] QString baseUrl() const;
    [[nodiscard]] QUrl reportUrl() const;
    enum class HeaderOrder { AuthorizationLast, AuthorizationFirst };
    [[nodiscard]] UrlRequest jsonRequest(const QUrl &url, const QJsonObject &body,
                                         HeaderOrder order = HeaderOrder::AuthorizationLast) const;
    void addAuthorization(UrlRequest &request) const;
    void setAccessToken(std::optional<QString> token);
    void sendReportPrivate(const WXLAPIReport &report, const std::optional<QString> &screenshotUrl,
                           const QStringList &files, std::function<void(std::optional<Error>)> onCompletion);

    UrlSession &m_session;
    Scheduler &m_scheduler;
    MakeInfoPlist m_infoPlist;
    mutable std::mutex m_mutex; // guards `m_accessToken`
    std::optional<QString> m_accessToken;
};

} // namespace wexel

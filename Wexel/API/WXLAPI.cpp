#include "API/WXLAPI.h"

#include <QJsonDocument>

#include "API/Helpers/MultiPartForm.h"
#include "API/WXLErrors.h"
#include "Platform/Log.h"

namespace wexel {

namespace {

using Data = std::optional<QByteArray>;
using Response = std::optional<UrlResponse>;
using MaybeError = std::optional<Error>;

/// The status of an answer, 0 when there is none.
int statusOf(const Response &response)
{
    return response ? response->statusCode : 0;
}

QJsonObject applicationObject(const std::optional<QString> &bundleId, const QString &os,
                              const QString &platform)
{
    QJsonObject object{{QStringLiteral("os"), os}, {QStringLiteral("platform"), platform}};
    if (bundleId)
        object.insert(QStringLiteral("bundle_id"), *bundleId);
    return object;
}

} // namespace

WXLAPI::WXLAPI(UrlSession &session, Scheduler &scheduler, MakeInfoPlist infoPlist)
    : m_session(session)
    , m_scheduler(scheduler)
    , m_infoPlist(std::move(infoPlist))
{
}

UrlSessionConfiguration WXLAPI::sessionConfiguration()
{
    return {.additionalHeaders
            = {{"Content-Type", "application/x-www-form-urlencoded"}, {"User-Agent", "Wexel/1.0"}}};
}

void WXLAPI::authenticateWith(
    const std::optional<QString> &clientId, const std::optional<QString> &secret,
    std::function<void(std::optional<WXLAPIAuthResponse>, std::optional<Error>)> onCompletion)
{
    UrlRequest request;
    request.url = QUrl(baseUrl() + QStringLiteral("auth/oauth2/token"));
    request.method = QByteArrayLiteral("POST");
    request.body = QStringLiteral("grant_type=client_credentials&client_id=%1&client_secret=%2")
                       .arg(logged(clientId), logged(secret))
                       .toUtf8();
    m_session.dataTask(request,
                       [this, onCompletion = std::move(onCompletion)](const Data &data, const Response &,
                                                                      const MaybeError &error) {
                           if (!data)
                               return onCompletion({}, error);
                           const auto response = WXLAPIAuthResponse::initWithData(*data);
                           setAccessToken(response ? std::optional(response->accessToken) : std::nullopt);
                           onCompletion(response, {});
                       });
}

void WXLAPI::uploadFile(const WXLAPIReportFile &file,
                        std::function<void(std::optional<QUrl>, std::optional<Error>)> onCompletion)
{
    auto request = MultiPartForm::requestWithURL(QUrl(baseUrl() + QStringLiteral("api/1.0/files")), file.data,
                                                 file.fileName);
    // Added, not set: the backend gets both values, joined by a comma.
    request.addValue(QByteArrayLiteral("application/json"), QByteArrayLiteral("Content-Type"));
    addAuthorization(request);
    m_session.dataTask(
        request,
        [onCompletion = std::move(onCompletion)](const Data &data, const Response &response,
                                                 const MaybeError &error) {
            if (!data) {
                if (error)
                    log(QStringLiteral("WXLAPI: Error uploading file with error %1")
                            .arg(error->localizedDescription()));
                return onCompletion({}, error);
            }
            if (statusOf(response) == HttpStatus::Forbidden) {
                log(QStringLiteral("WXLAPI: Failed to upload file, application archived, status code 403"));
                return onCompletion({}, Error{WXLErrorDomainAPI, WXLErrorApplicationArchived});
            }
            const QUrl url(QJsonDocument::fromJson(*data).object().value(u"url").toString());
            if (!url.isValid()) {
                log(QStringLiteral("WXLAPI: Error uploading file, no error reported"));
                return onCompletion({}, {});
            }
            log(QStringLiteral("WXLAPI: Uploaded file to %1").arg(url.toString(QUrl::FullyEncoded)));
            onCompletion(url, {});
        });
}

void WXLAPI::getBrandingOnCompletion(
    std::function<void(std::optional<WXLAPIBrandingResponse>, std::optional<Error>)> onCompletion)
{
    UrlRequest request;
    request.url = QUrl(baseUrl() + QStringLiteral("api/1.0/white-labeling"));
    addAuthorization(request);
    m_session.dataTask(request,
                       [onCompletion = std::move(onCompletion)](const Data &data, const Response &response,
                                                                const MaybeError &error) {
                           if (statusOf(response) == HttpStatus::NotFound)
                               return onCompletion({}, {});
                           if (error)
                               return onCompletion({}, error);
                           MaybeError parsing;
                           auto branding
                               = WXLAPIBrandingResponse::initWithData(data.value_or(QByteArray()), parsing);
                           onCompletion(std::move(branding), parsing);
                       });
}

void WXLAPI::getApplicationEnabled(const std::optional<QString> &bundleId, const QString &operatingSystem,
                                   const QString &platform,
                                   std::function<void(std::optional<bool>)> completion)
{
    QJsonObject body = applicationObject(bundleId, operatingSystem, platform);
    body.insert(QStringLiteral("check_archived"), true);
    const auto enabled = [](const Response &response, const MaybeError &error) -> std::optional<bool> {
        if (!response)
            return {};
        if (response->statusCode == HttpStatus::NotFound) {
            log(QStringLiteral("WXLAPI - Application enabled request returned status code 404"));
            return false;
        }
        if (error) {
            log(QStringLiteral("WXLAPI - Application enabled request returned error -> %1")
                    .arg(error->localizedDescription()));
            return {};
        }
        log(QStringLiteral("WXLAPI - Application enabled request returned success, status code(%1)")
                .arg(response->statusCode));
        return true;
    };
    m_session.dataTask(
        jsonRequest(QUrl(baseUrl() + QStringLiteral("api/1.0/issue_tracking/apps")), body,
                    HeaderOrder::AuthorizationFirst),
        [this, enabled, completion = std::move(completion)](const Data &, const Response &response,
                                                            const MaybeError &error) {
            m_scheduler.perform([completion, answer = enabled(response, error)] { completion(answer); });
        });
}

void WXLAPI::registerApplication(const std::optional<QString> &bundleId, const QString &operatingSystem,
                                 const QString &platform)
{
    const auto request = jsonRequest(QUrl(baseUrl() + QStringLiteral("api/1.0/issue_tracking/apps")),
                                     applicationObject(bundleId, operatingSystem, platform));
    m_session.dataTask(request, [](const Data &, const Response &response, const MaybeError &error) {
        if (statusOf(response) != HttpStatus::Ok)
            log(QStringLiteral("WXLAPI - creating application, status code %1 (not 200)")
                    .arg(statusOf(response)));
        else if (error)
            log(QStringLiteral("WXLAPI - error creating application, error: %1").arg(error->description()));
        else
            log(QStringLiteral("WXLAPI - Success creating application"));
    });
}

std::optional<QString> WXLAPI::accessToken() const
{
    const std::lock_guard lock(m_mutex);
    return m_accessToken;
}

void WXLAPI::setAccessToken(std::optional<QString> token)
{
    const std::lock_guard lock(m_mutex);
    m_accessToken = std::move(token);
}

QByteArray WXLAPI::bodyDataFromDictionary(const QJsonObject &dictionary)
{
    // QJsonDocument never escapes a slash, so there is none to replace.
    return QJsonDocument(dictionary).toJson(QJsonDocument::Indented);
}

QString WXLAPI::baseUrl() const
{
    return m_infoPlist().apiUrl().value_or(QString());
}

QUrl WXLAPI::reportUrl() const
{
    return QUrl(QStringLiteral("%1%2%3").arg(baseUrl(), QStringLiteral("api/1.0/issue_tracking/apps/"),
                                             logged(m_infoPlist().hostApplicationBundleId())));
}

UrlRequest WXLAPI::jsonRequest(const QUrl &url, const QJsonObject &body, HeaderOrder order) const
{
    UrlRequest request;
    request.url = url;
    request.method = QByteArrayLiteral("POST");
    if (order == HeaderOrder::AuthorizationFirst)
        addAuthorization(request);
    request.addValue(QByteArrayLiteral("application/json"), QByteArrayLiteral("Accept"));
    request.addValue(QByteArrayLiteral("application/json"), QByteArrayLiteral("Content-Type"));
    if (order == HeaderOrder::AuthorizationLast)
        addAuthorization(request);
    request.body = bodyDataFromDictionary(body);
    return request;
}

void WXLAPI::addAuthorization(UrlRequest &request) const
{
    if (const auto token = accessToken())
        request.addValue("Bearer " + token->toUtf8(), QByteArrayLiteral("Authorization"));
}

} // namespace wexel

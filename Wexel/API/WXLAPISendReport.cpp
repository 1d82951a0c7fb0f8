#include <latch>
#include <memory>

#include <QJsonArray>

#include "API/WXLAPI.h"
#include "API/WXLErrors.h"
#include "Platform/Log.h"

namespace wexel {

namespace {

/// What the concurrent uploads of one report come to. Read without the lock once nothing is pending.
struct Uploads {
    explicit Uploads(qsizetype count) : pending(count) { }

    void finish(const std::optional<QUrl> &url, const std::optional<Error> &error, bool isScreenshot)
    {
        {
            const std::lock_guard lock(mutex);
            lastError = error;
            if (url && isScreenshot)
                screenshotUrl = url->toString(QUrl::FullyEncoded);
            else if (url)
                fileUrls.append(url->toString(QUrl::FullyEncoded));
        }
        pending.count_down();
    }

    std::latch pending;
    std::mutex mutex; // guards the rest while uploads are pending
    std::optional<QString> screenshotUrl;
    QStringList fileUrls; // in the order in which the uploads finished
    std::optional<Error> lastError; // of the upload that finished last, whatever came before
};

void addScreenshotURL(const std::optional<QString> &url, QJsonObject &dictionary)
{
    if (url)
        dictionary.insert(QStringLiteral("screenshot_url"), *url);
}

void addFileUrls(const QStringList &urls, QJsonObject &dictionary)
{
    QJsonArray files;
    for (const QString &url : urls)
        files.append(QJsonObject{{QStringLiteral("url"), url}});
    if (!files.isEmpty())
        dictionary.insert(QStringLiteral("files"), files);
}

} // namespace

void WXLAPI::sendReport(const WXLAPIReport &report, std::function<void(std::optional<Error>)> onCompletion)
{
    const auto files = report.files.value_or(QList<WXLAPIReportFile>());
    const auto uploads = std::make_shared<Uploads>(files.size() + (report.screenshotFile ? 1 : 0));
    const auto upload = [&](const WXLAPIReportFile &file, bool isScreenshot) {
        uploadFile(file, [uploads, isScreenshot](const auto &url, const auto &error) {
            uploads->finish(url, error, isScreenshot);
        });
    };
    if (report.screenshotFile)
        upload(*report.screenshotFile, true);
    for (const auto &file : files)
        upload(file, false);
    uploads->pending.wait();

    const bool screenshotSent = !report.screenshotFile || uploads->screenshotUrl;
    if (screenshotSent && uploads->fileUrls.size() == files.size())
        sendReportPrivate(report, uploads->screenshotUrl, uploads->fileUrls, std::move(onCompletion));
    else
        onCompletion(uploads->lastError);
}

void WXLAPI::sendReportPrivate(const WXLAPIReport &report, const std::optional<QString> &screenshotUrl,
                               const QStringList &files,
                               std::function<void(std::optional<Error>)> onCompletion)
{
    QJsonObject body = report.dictValues();
    addScreenshotURL(screenshotUrl, body);
    addFileUrls(files, body);
    m_session.dataTask(
        jsonRequest(reportUrl(), body),
        [onCompletion = std::move(onCompletion)](const std::optional<QByteArray> &,
                                                 const std::optional<UrlResponse> &response,
                                                 const std::optional<Error> &error) {
            const int status = response ? response->statusCode : 0;
            if (status == HttpStatus::Forbidden) {
                log(QStringLiteral(
                        "WXLAPI - error uploading report, status code %1 (not 200), application archived")
                        .arg(status));
                return onCompletion(Error{WXLErrorDomainAPI, WXLErrorApplicationArchived});
            }
            if (status != HttpStatus::Ok) {
                onCompletion(Error{WXLErrorDomainAPI, WXLErrorAPICode});
                return log(
                    QStringLiteral("WXLAPI - error uploading report, status code %1 (not 200)").arg(status));
            }
            if (error) {
                log(QStringLiteral("WXLAPI - error uploading report, error: %1").arg(error->description()));
                return onCompletion(error);
            }
            log(QStringLiteral("WXLAPI - Success uploading report"));
            onCompletion({});
        });
}

} // namespace wexel

#include "Business/WXLNetworkRequestReporter.h"

#include <QElapsedTimer>
#include <QStringDecoder>

#include "Business/HistoryKeys.h"
#include "Business/HistorySnapshot.h"
#include "Business/NetworkRequestRecord.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLInfoPlist.h"
#include "Business/WXLSessionReporter.h"
#include "Platform/ApplicationEnd.h"
#include "Platform/SerialQueue.h"

namespace wexel {

namespace {

/// A character whose bytes are not all there is left out; a body that is not UTF-8 gives the empty text.
QString recordedText(const QByteArray &body)
{
    const bool isCut = body.size() > WexelMaximumBodyBytes;
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text
        = decoder.decode(QByteArrayView(body).first(isCut ? WexelMaximumBodyBytes : body.size()));
    if (decoder.hasError())
        return {};
    return isCut ? text + WexelBodyCutMark : text;
}

QVariantMap dictionary(const HeaderFields &headers)
{
    QVariantMap result;
    for (const auto &[name, value] : headers)
        result.insert(QString::fromUtf8(name), QString::fromUtf8(value));
    return result;
}

} // namespace

WXLNetworkRequestReporter::WXLNetworkRequestReporter(WXLAppRepository &repository,
                                                     const WXLDateProvider &dateProvider, QString baseUrl)
    : m_repository(repository)
    , m_dateProvider(dateProvider)
    , m_baseUrl(std::move(baseUrl))
    , m_timeEventQueue(repository, kNetworkRequestReportKey)
{
}

WXLNetworkRequestReporter &WXLNetworkRequestReporter::shared()
{
    static auto *instance = new WXLNetworkRequestReporter( // never destroyed, see ApplicationEnd
        WXLAppRepository::sharedInstance(), WXLDateProvider::sharedInstance(),
        WXLInfoPlist().apiUrl().value_or(QString()));
    return *instance;
}

UrlSession::Completion WXLNetworkRequestReporter::report(const UrlRequest &request,
                                                         UrlSession::Completion completionHandler,
                                                         const SentBody &sentBody)
{
    if (!isRecorded(request.url))
        return completionHandler;
    QElapsedTimer sinceStart; // the clock may be set while the request runs
    sinceStart.start();
    const auto record = std::make_shared<NetworkRequestRecord>(
        QString::fromUtf8(request.method), request.url.toString(QUrl::FullyEncoded),
        recordedText(request.body), dictionary(request.headers()), m_dateProvider.timestamp());
    push(record);
    return [=, this](const auto &data, const auto &response, const auto &error) {
        constexpr double nanosecondsInASecond = 1e9;
        const double seconds = static_cast<double>(sinceStart.nsecsElapsed()) / nanosecondsInASecond;
        const auto sent = sentBody ? std::optional(sentBody()) : std::nullopt;
        push(record, [=](NetworkRequestRecord &changed) {
            if (sent)
                changed.requestBody = recordedText(*sent);
            if (response) {
                changed.statusCode = QString::number(response->statusCode);
                changed.responseHeaders = dictionary(response->headers);
            }
            if (data)
                changed.responseBody = recordedText(*data);
            changed.duration = seconds;
        });
        if (completionHandler)
            completionHandler(data, response, error);
    };
}

void WXLNetworkRequestReporter::removeRecordsOlderThan(const QDateTime &limit)
{
    m_timeEventQueue.removeRecordsOlderThan(limit);
}

std::optional<QVariantList>
WXLNetworkRequestReporter::networkRequestHistory(const WXLAppRepository &repository)
{
    return historySnapshot(repository, kNetworkRequestReportKey, QStringLiteral("WXLNetworkRequestReporter"));
}

// Every address contains the empty host, too.
bool WXLNetworkRequestReporter::isRecorded(const QUrl &url) const
{
    const QString host = url.host();
    return !host.isEmpty() && !m_baseUrl.contains(host, Qt::CaseInsensitive) && !ApplicationEnd::hasBegun();
}

// By way of the working queue, which alone may change the record, and which may wait for the store.
void WXLNetworkRequestReporter::push(const std::shared_ptr<NetworkRequestRecord> &record, Change change)
{
    if (ApplicationEnd::hasBegun())
        return;
    m_timeEventQueue.workingQueue().async(
        [queue = m_timeEventQueue, &repository = m_repository, record, change = std::move(change)]() mutable {
            if (change)
                change(*record);
            queue.push(record, WXLSessionReporter::oldestSessionDate(repository));
        });
}

} // namespace wexel

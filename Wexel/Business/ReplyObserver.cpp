#include "Business/ReplyObserver.h"

#include <algorithm>
#include <utility>

#include <QEvent>

#include "Business/WXLNetworkRequestReporter.h"

namespace wexel {

ReplyObserver::ReplyObserver(QNetworkReply &reply, UrlSession::Completion completion)
    : QObject(&reply)
    , m_reply(reply)
    , m_completion(std::move(completion))
{
    if (reply.isFinished()) { // a synchronous request, which may not signal any more
        takeHead();
        finish();
        return;
    }
    reply.installEventFilter(this);
    m_readyRead = connect(&reply, &QIODevice::readyRead, this, &ReplyObserver::noticeArrival);
    connect(&reply, &QNetworkReply::metaDataChanged, this, &ReplyObserver::takeHead);
    connect(&reply, &QNetworkReply::redirected, this, &ReplyObserver::noticeRedirect);
    connect(&reply, &QNetworkReply::finished, this, &ReplyObserver::finish);
}

ReplyObserver::~ReplyObserver()
{
    complete(Error{UrlErrorDomain, QNetworkReply::OperationCanceledError, QStringLiteral("deleted")});
}

// Bytes only come in while the reply handles such an event.
bool ReplyObserver::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::MetaCall && noticeReading() && isLookingFree())
        look(); // some may have come without a signal
    return false;
}

/// \return false when it is in vain to look any further
bool ReplyObserver::noticeReading()
{
    if (m_reply.isTransactionStarted()) // what the host reads now it may take back
        return true;
    const qint64 unread = m_reply.bytesAvailable();
    const qint64 read = std::max<qint64>(0, m_unread - unread);
    m_unread = unread;
    if (read > m_seen) { // rather no body than one with a hole
        m_body.clear();
        stopLooking();
        return false;
    }
    m_seen -= read;
    return true;
}

void ReplyObserver::noticeArrival()
{
    if (m_reply.isTransactionStarted())
        return;
    m_unread = m_reply.bytesAvailable();
    if (isLookingFree())
        look();
}

/// What is not in the device's buffer yet gets there by looking, as by reading. Decompressed bytes go to the manager's
/// cache on that way, and a limited reply takes it as leave to fetch more.
bool ReplyObserver::isLookingFree() const
{
    if (m_reply.QIODevice::bytesAvailable() >= m_unread
        || m_reply.attribute(QNetworkRequest::DownloadBufferAttribute).isValid())
        return true;
    const auto *manager = m_reply.manager();
    return m_reply.readBufferSize() == 0 && (manager == nullptr || manager->cache() == nullptr);
}

void ReplyObserver::look()
{
    constexpr qsizetype wanted = WXLNetworkRequestReporter::wantedBodyBytes;
    const qint64 end = std::min(m_unread, m_seen + wanted - m_body.size());
    if (end <= m_seen || !m_reply.isReadable())
        return;
    const QByteArray unread = m_reply.peek(end);
    m_body += unread.mid(m_seen);
    m_seen = std::max<qint64>(m_seen, unread.size());
    if (m_body.size() >= wanted)
        stopLooking();
}

void ReplyObserver::stopLooking()
{
    m_isLooking = false;
    m_reply.removeEventFilter(this);
    disconnect(m_readyRead);
}

void ReplyObserver::takeHead()
{
    const QVariant status = m_reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    constexpr int redirects = 3;
    const bool isOfFormerAddress = m_isRedirected && status.toInt() / 100 == redirects; // told once more
    if (status.isValid() && !isOfFormerAddress)
        m_response = UrlResponse{status.toInt(), m_reply.rawHeaderPairs()};
}

// The next address may never answer.
void ReplyObserver::noticeRedirect()
{
    m_isRedirected = true;
    m_response.reset();
}

void ReplyObserver::finish()
{
    if (m_isLooking && noticeReading())
        look();
    stopLooking();
    complete(m_reply.error() == QNetworkReply::NoError
                 ? std::nullopt
                 : std::optional(Error{UrlErrorDomain, m_reply.error(), m_reply.errorString()}));
}

void ReplyObserver::complete(std::optional<Error> error)
{
    if (const auto completion = std::exchange(m_completion, {}))
        completion(m_body.isEmpty() ? std::nullopt : std::optional(m_body), m_response, std::move(error));
}

} // namespace wexel

#include "Business/RequestCapture.h"

#include <QBuffer>
#include <QNetworkReply>
#include <QNetworkRequest>

#include "Business/ReplyObserver.h"
#include "Business/UploadTee.h"
#include "Business/WXLNetworkRequestReporter.h"

namespace wexel {

namespace {

QByteArray verb(QNetworkAccessManager::Operation operation, const QNetworkRequest &request)
{
    switch (operation) {
    case QNetworkAccessManager::HeadOperation:
        return "HEAD";
    case QNetworkAccessManager::GetOperation:
        return "GET";
    case QNetworkAccessManager::PutOperation:
        return "PUT";
    case QNetworkAccessManager::PostOperation:
        return "POST";
    case QNetworkAccessManager::DeleteOperation:
        return "DELETE";
    case QNetworkAccessManager::CustomOperation:
    case QNetworkAccessManager::UnknownOperation:
        break;
    }
    return request.attribute(QNetworkRequest::CustomVerbAttribute).toByteArray();
}

/// What is still to be read of a buffer. A copy: the host's bytes may go as soon as they are sent.
QByteArray unreadBytes(const QBuffer &buffer)
{
    const qsizetype begin = std::min<qsizetype>(buffer.pos(), buffer.size());
    const qsizetype size = std::min(buffer.size() - begin, WXLNetworkRequestReporter::wantedBodyBytes);
    return {buffer.data().constData() + begin, size};
}

UrlRequest urlRequest(QNetworkAccessManager::Operation operation, const QNetworkRequest &request,
                      const QBuffer *body)
{
    UrlRequest result;
    result.url = request.url();
    result.method = verb(operation, request);
    if (body)
        result.body = unreadBytes(*body);
    const auto names = request.rawHeaderList();
    for (const QByteArray &name : names)
        result.setValue(request.rawHeader(name), name);
    return result;
}

} // namespace

QNetworkReply *captured(WXLNetworkRequestReporter &reporter, QNetworkAccessManager::Operation operation,
                        const QNetworkRequest &request, QIODevice *body,
                        const std::function<QNetworkReply *(QIODevice *body)> &create)
{
    if (request.url().scheme().startsWith(u"preconnect-")) // only opens a connection
        return create(body);
    // Qt takes a buffer's bytes without reading it; any other device must be asked exactly as Qt asks it.
    const auto *buffer = qobject_cast<QBuffer *>(body);
    std::unique_ptr<UploadTee> tee(body && !buffer ? new UploadTee(*body) : nullptr);
    auto completion = reporter.report(urlRequest(operation, request, buffer), {},
                                      tee ? tee->sentBody() : WXLNetworkRequestReporter::SentBody());
    if (!completion)
        return create(body);
    QNetworkReply *reply = create(tee ? tee.get() : body);
    if (tee)
        tee.release()->setParent(reply);
    new ReplyObserver(*reply, std::move(completion));
    return reply;
}

} // namespace wexel

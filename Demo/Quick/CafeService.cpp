#include "CafeService.h"

#include <QJsonDocument>
#include <QNetworkReply>

#include "Log.h"

namespace {

constexpr int timeoutMs = 10'000;

/// The customer reads a sentence, the log what happened.
CafeService::Answer failure(const QNetworkReply &reply, const QString &reason)
{
    qCWarning(cafe).noquote() << reply.url().toDisplayString() << "failed:" << reason;
    return {{}, CafeService::tr("We cannot reach the café right now. Please try again in a moment.")};
}

CafeService::Answer answerOf(QNetworkReply &reply)
{
    if (reply.error() != QNetworkReply::NoError)
        return failure(reply, reply.errorString());
    const QJsonDocument document = QJsonDocument::fromJson(reply.readAll());
    if (document.object().isEmpty())
        return failure(reply, QStringLiteral("expected a JSON object with something in it"));
    return {document.object(), {}};
}

} // namespace

CafeService::CafeService(QNetworkAccessManager &network) : m_network(network) { }

void CafeService::fetchMenu(QObject *context, const Completion &completion)
{
    send("GET", QStringLiteral("menu.json"), {}, context, completion);
}

void CafeService::placeOrder(const QJsonObject &order, QObject *context, const Completion &completion)
{
    send("POST", QStringLiteral("orders"), QJsonDocument(order).toJson(), context, completion);
}

void CafeService::send(const QByteArray &verb, const QString &path, const QByteArray &body, QObject *context,
                       const Completion &completion)
{
    if (m_address.isEmpty()) {
        const Answer missing{{}, tr("No menu service is set.\nStart the app with --menu ADDRESS.")};
        QMetaObject::invokeMethod(
            context, [=] { completion(missing); }, Qt::QueuedConnection);
        return;
    }
    QNetworkRequest request(m_address.resolved(QUrl(path)));
    request.setTransferTimeout(timeoutMs);
    if (!body.isEmpty())
        request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    QNetworkReply *reply = m_network.sendCustomRequest(request, verb, body);
    connect(reply, &QNetworkReply::finished, reply, &QObject::deleteLater);
    connect(reply, &QNetworkReply::finished, context, [reply, completion] { completion(answerOf(*reply)); });
}

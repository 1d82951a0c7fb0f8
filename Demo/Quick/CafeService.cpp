#include "CafeService.h"

#include <QJsonDocument>
#include <QNetworkReply>

namespace {

constexpr int timeoutMs = 10'000;

CafeService::Answer answerOf(QNetworkReply &reply)
{
    if (reply.error() != QNetworkReply::NoError)
        return {{}, CafeService::tr("%1 did not answer as expected.").arg(reply.url().authority())};
    const QJsonDocument document = QJsonDocument::fromJson(reply.readAll());
    if (document.object().isEmpty())
        return {{}, CafeService::tr("%1 sent something that is not a menu.").arg(reply.url().authority())};
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

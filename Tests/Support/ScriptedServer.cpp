#include "Support/ScriptedServer.h"

#include <algorithm>
#include <optional>

#include <QTcpSocket>
#include <QTimer>

namespace wexel {

namespace {

/// Takes one whole request off the front of what was received.
std::optional<ScriptedServer::Request> takeRequest(QByteArray &received)
{
    const auto headEnd = received.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return {};
    ScriptedServer::Request request;
    request.headers = received.left(headEnd).replace('\r', "").split('\n');
    const auto requestLine = request.headers.takeFirst().split(' ');
    request.method = requestLine.value(0);
    request.path = requestLine.value(1);
    const auto length = request.header("Content-Length").toLongLong();
    const auto bodyStart = headEnd + 4;
    if (received.size() < bodyStart + length)
        return {};
    request.body = received.mid(bodyStart, length);
    received.remove(0, bodyStart + length);
    return request;
}

} // namespace

QByteArray ScriptedServer::Request::header(const QByteArray &name) const
{
    for (const auto &line : headers) {
        const auto colon = line.indexOf(':');
        if (line.left(colon).compare(name, Qt::CaseInsensitive) == 0)
            return line.mid(colon + 1).trimmed();
    }
    return {};
}

ScriptedServer::ScriptedServer(Script script) : m_script(std::move(script))
{
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this] {
        auto *socket = nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, socket,
                [this, socket, received = QByteArray()]() mutable { serve(socket, received); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    });
}

QString ScriptedServer::url() const
{
    return QStringLiteral("http://127.0.0.1:%1/").arg(serverPort());
}

int ScriptedServer::count(const QByteArray &path) const
{
    return static_cast<int>(std::count_if(m_requests.begin(), m_requests.end(),
                                          [&](const Request &request) { return request.path == path; }));
}

void ScriptedServer::serve(QTcpSocket *socket, QByteArray &received)
{
    received += socket->readAll();
    while (const auto request = takeRequest(received)) {
        m_requests.append(*request);
        sendWhenDue(socket, m_script(*request));
    }
}

void ScriptedServer::sendWhenDue(QTcpSocket *socket, const Answer &answer)
{
    if (!answer.after || answer.after())
        return send(*socket, answer);
    constexpr int pollMilliseconds = 2;
    QTimer::singleShot(pollMilliseconds, socket, [socket, answer] { sendWhenDue(socket, answer); });
}

void ScriptedServer::send(QTcpSocket &socket, const Answer &answer)
{
    if (answer.cut == Answer::Cut::BeforeAnswer)
        return socket.abort();
    QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status) + " Scripted\r\n";
    if (!answer.location.isEmpty())
        head += "Location: " + answer.location + "\r\n";
    head += answer.headers;
    if (answer.isEndless) {
        socket.write(head + "\r\n");
        return repeat(&socket, answer.body);
    }
    head += "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n\r\n";
    const bool cut = answer.cut == Answer::Cut::WithinAnswer;
    socket.write(head + (cut ? answer.body.left(answer.body.size() / 2) : answer.body));
    if (answer.cut != Answer::Cut::None)
        socket.disconnectFromHost();
}

void ScriptedServer::repeat(QTcpSocket *socket, const QByteArray &body)
{
    socket->write(body);
    connect(socket, &QTcpSocket::bytesWritten, socket, [socket, body] {
        if (socket->bytesToWrite() == 0)
            socket->write(body);
    });
}

} // namespace wexel

#pragma once

#include <functional>

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTcpServer>

class QTcpSocket;

namespace wexel {

/// A server that does what the real one cannot be made to do: answers anything, or cuts the connection at any point.
/// Lives on the test's main thread, whose event loop must run.
class ScriptedServer final : public QTcpServer
{
public:
    struct Request {
        QByteArray method;
        QByteArray path;
        QList<QByteArray> headers; ///< lines as received
        QByteArray body;
        /// Value of the first header of that name, without case; empty when missing.
        [[nodiscard]] QByteArray header(const QByteArray &name) const;
    };
    struct Answer {
        int status = 200;
        QByteArray body = QByteArrayLiteral("{}");
        enum class Cut { None, BeforeAnswer, WithinAnswer, AfterAnswer } cut = Cut::None;
        QByteArray location = {};
        /// More lines of the head, each with its "\r\n".
        QByteArray headers = {};
        /// The body again and again, as fast as it is taken, without an end.
        bool isEndless = false;
        /// Held back until this is true; empty: at once.
        std::function<bool()> after = {};
    };
    using Script = std::function<Answer(const Request &)>;

    explicit ScriptedServer(Script script);

    [[nodiscard]] QString url() const;
    [[nodiscard]] const QList<Request> &requests() const { return m_requests; }
    /// How many requests had this path.
    [[nodiscard]] int count(const QByteArray &path) const;

private:
    void serve(QTcpSocket *socket, QByteArray &received);
    static void send(QTcpSocket &socket, const Answer &answer);
    static void repeat(QTcpSocket *socket, const QByteArray &body);
    static void sendWhenDue(QTcpSocket *socket, const Answer &answer);

    Script m_script;
    QList<Request> m_requests;
};

} // namespace wexel

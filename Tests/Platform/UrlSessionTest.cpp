#include <gtest/gtest.h>

#include <QNetworkReply>
#include <QTcpSocket>

#include "Platform/UrlSession.h"
#include "Support/ScriptedServer.h"
#include "Support/Wait.h"

using namespace wexel;
using namespace std::chrono_literals;

namespace {

using Answer = ScriptedServer::Answer;
using Request = ScriptedServer::Request;

struct Outcome {
    std::optional<QByteArray> data;
    std::optional<UrlResponse> response;
    std::optional<Error> error;
};

Outcome perform(UrlSession &session, const UrlRequest &request)
{
    auto outcome = std::make_shared<Outcome>();
    const auto done = std::make_shared<std::atomic<int>>(0);
    session.dataTask(request, [=](auto data, auto response, auto error) {
        *outcome = {std::move(data), response, std::move(error)};
        ++*done;
    });
    EXPECT_TRUE(spinUntil([&] { return *done > 0; }));
    return *outcome;
}

UrlRequest get(const QString &url)
{
    UrlRequest request;
    request.url = QUrl(url);
    return request;
}

TEST(UrlSession, GivesTheBodyWhateverTheStatus)
{
    Answer answer;
    ScriptedServer server([&](const Request &) { return answer; });
    UrlSession session({.additionalHeaders = {{"Content-Type", "default"}, {"X-Default", "1"}}});
    for (const int status : {200, 204, 400, 401, 403, 404, 418, 500, 501, 503}) {
        answer = {.status = status, .body = status == 204 ? "" : "body"};
        const auto outcome = perform(session, get(server.url()));
        ASSERT_TRUE(outcome.data && outcome.response) << status;
        EXPECT_EQ(*outcome.data, answer.body) << status;
        EXPECT_EQ(outcome.response->statusCode, status);
        EXPECT_FALSE(outcome.error) << status;
    }
    auto request = get(server.url());
    request.addValue("a", "content-type");
    request.addValue("b", "Content-Type");
    (void)perform(session, request);
    EXPECT_EQ(server.requests().first().header("Content-Type"), "default");
    EXPECT_EQ(server.requests().last().header("Content-Type"), "a,b") << "joined, in place of the default";
    EXPECT_EQ(server.requests().last().header("X-Default"), "1");
}

TEST(UrlSession, TellsAFailedTransportFromAnAnswer)
{
    Answer answer{.body = QByteArray(1000, 'x'), .cut = Answer::Cut::WithinAnswer};
    ScriptedServer server([&](const Request &) { return answer; });
    UrlSession session({.timeout = 200ms, .maximumAnswerBytes = 5000});
    auto outcome = perform(session, get(server.url()));
    EXPECT_TRUE(!outcome.data && outcome.response && outcome.error) << "the head had arrived";

    answer = {.cut = Answer::Cut::BeforeAnswer};
    outcome = perform(session, get(server.url()));
    EXPECT_TRUE(!outcome.data && !outcome.response && outcome.error);

    answer = {.after = [] { return false; }};
    outcome = perform(session, get(server.url()));
    EXPECT_TRUE(!outcome.data && outcome.error) << "no progress for the length of the time-out";

    answer = {.body = QByteArray(100'000, 'x')};
    outcome = perform(session, get(server.url()));
    EXPECT_TRUE(!outcome.data && outcome.error) << "longer than an answer may be";

    server.close();
    outcome = perform(session, get(server.url()));
    ASSERT_TRUE(outcome.error);
    EXPECT_EQ(outcome.error->domain, UrlErrorDomain);
    EXPECT_EQ(outcome.error->code, QNetworkReply::ConnectionRefusedError);
    EXPECT_TRUE(perform(session, get(QStringLiteral("no such scheme://"))).error);
}

TEST(UrlSession, FollowsRedirectsOnlyWhereNothingIsLostOrShown)
{
    ScriptedServer elsewhere([](const Request &) { return Answer{.body = "elsewhere"}; });
    QByteArray location = "/here";
    ScriptedServer server([&](const Request &request) {
        return request.path == "/here" ? Answer{.body = "found"}
                                       : Answer{.status = 302, .location = location};
    });
    UrlSession session({});
    EXPECT_EQ(perform(session, get(server.url())).data, "found");
    auto post = get(server.url());
    post.method = "POST";
    post.body = "report";
    auto outcome = perform(session, post);
    EXPECT_TRUE(!outcome.data && outcome.error) << "a POST would arrive as a GET";
    location = elsewhere.url().toUtf8();
    outcome = perform(session, get(server.url()));
    EXPECT_TRUE(!outcome.data && outcome.error);
    EXPECT_TRUE(elsewhere.requests().isEmpty()) << "no header is shown to another server";
}

TEST(UrlSession, SendsABodyOnceEvenWhenTheConnectionIsCut)
{
    Answer answer;
    ScriptedServer server([&](const Request &) { return answer; });
    UrlSession session({});
    auto post = get(server.url());
    post.method = "POST";
    post.body = QByteArray(300'000, 'x');
    EXPECT_EQ(perform(session, post).data, "{}");
    EXPECT_EQ(server.requests().last().body, post.body);
    answer.cut = Answer::Cut::BeforeAnswer;
    EXPECT_TRUE(perform(session, post).error) << "on a connection that was kept";
    EXPECT_EQ(server.requests().size(), 2);
    EXPECT_TRUE(perform(session, post).error) << "on a new one";
    EXPECT_EQ(server.requests().size(), 3);
}

/// As a server does that refuses an upload by its header, reads the rest and then breaks its answer off.
TEST(UrlSession, TellsThatAnAnswerWasCutWhichBeganBeforeTheRequestWasSent)
{
    QByteArray answer;
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        auto *socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket,
                         [&answer, socket, answered = false]() mutable {
                             if (!std::exchange(answered, true) && socket->write(answer) > 0)
                                 socket->flush();
                             if (socket->readAll().endsWith('!'))
                                 socket->disconnectFromHost();
                         });
    });
    UrlSession session({});
    auto post = get(QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort()));
    post.method = "POST";
    // More than the sockets can hold: some of it is still unsent when the answer comes.
    post.body = QByteArray(16'000'000, 'x') + '!';
    for (const QByteArray head :
         {"200 OK\r\nContent-Length: 3\r\n\r\n", "401 No\r\nContent-Length: 3\r\n\r\n",
          "500 No\r\nContent-Length: 3\r\n\r\n", "200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\n"}) {
        answer = "HTTP/1.1 " + head + "{}";
        const auto outcome = perform(session, post);
        EXPECT_TRUE(!outcome.data && outcome.error) << head.toStdString();
    }
}

TEST(UrlSession, CompletesWhatIsInFlightWhenItGoesAway)
{
    ScriptedServer server([](const Request &) { return Answer{.after = [] { return false; }}; });
    std::atomic<int> completed = 0;
    {
        UrlSession session({});
        for (int i = 0; i < 3; ++i) {
            session.dataTask(get(server.url()), [&](const auto &data, const auto &, const auto &error) {
                EXPECT_TRUE(!data && error);
                ++completed;
            });
        }
        ASSERT_TRUE(spinUntil([&] { return server.requests().size() == 3; }));
    }
    EXPECT_TRUE(spinUntil([&] { return completed == 3; }));
}

} // namespace

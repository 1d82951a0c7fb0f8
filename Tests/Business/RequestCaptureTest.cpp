#include <QHttpMultiPart>
#include <QNetworkDiskCache>
#include <QProcess>
#include <QTemporaryFile>
#include <QThread>

#include "Business/CapturedHost.h"

using namespace wexel;

namespace {

using Answer = ScriptedServer::Answer;
using Request = ScriptedServer::Request;

constexpr qsizetype limit = WexelMaximumBodyBytes;

/// When a host takes the bytes of its answer.
enum class Reading { WhenFinished, InPieces, Never };

struct Exchange {
    const char *name;
    std::function<QNetworkReply *(QNetworkAccessManager &, const QNetworkRequest &)> make;
    Answer answer = {};
    std::optional<QString> recordedBody
        = QStringLiteral("{}"); ///< of the answer; nothing: as the time allows
    std::function<void(QNetworkReply &)> whenRead = {};
};

/// All that a host notices of a request: its signals in their order, and what it reads. Signals that come as often as
/// the time allows count once.
std::string noticed(QNetworkAccessManager &manager, const Exchange &exchange, const QString &url,
                    Reading reading)
{
    QStringList trace;
    const auto note = [&trace](const QString &line) {
        if (trace.isEmpty() || trace.last() != line)
            trace.append(line);
    };
    QNetworkRequest request{QUrl(url)};
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("text/plain"));
    QNetworkReply *reply = exchange.make(manager, request);
    QByteArray body;
    bool isDone = false;
    qint64 uploaded = 0;
    QObject::connect(reply, &QNetworkReply::metaDataChanged, [&] { note(QStringLiteral("head")); });
    QObject::connect(reply, &QNetworkReply::redirected,
                     [&](const QUrl &to) { note(QStringLiteral("to ") + to.path()); });
    QObject::connect(reply, &QNetworkReply::uploadProgress,
                     [&](qint64 sent, qint64) { uploaded = std::max(uploaded, sent); });
    QObject::connect(reply, &QNetworkReply::errorOccurred, [&](auto error) {
        note(QStringLiteral("error %1 %2").arg(error).arg(reply->errorString()));
    });
    QObject::connect(reply, &QNetworkReply::readyRead, [&] {
        note(QStringLiteral("bytes"));
        if (reading == Reading::InPieces)
            body += reply->read(reply->bytesAvailable() / 2 + 1);
        if (exchange.whenRead)
            exchange.whenRead(*reply);
    });
    QObject::connect(reply, &QNetworkReply::readChannelFinished,
                     [&] { note(QStringLiteral("end of bytes")); });
    QObject::connect(reply, &QNetworkReply::finished, [&] {
        note(QStringLiteral("finished, %1 bytes to read")
                 .arg(reading == Reading::InPieces ? 0 : reply->bytesAvailable()));
        if (reading != Reading::Never && reply->isOpen())
            body += reply->readAll();
        note(QStringLiteral("uploaded %1, status %2")
                 .arg(uploaded)
                 .arg(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt()));
    });
    QObject::connect(&manager, &QNetworkAccessManager::finished, reply, [&] {
        note(QStringLiteral("manager: finished"));
        isDone = true;
    });
    EXPECT_TRUE(spinUntil([&] { return isDone; })) << exchange.name;
    delete reply;
    if (!exchange.answer.isEndless)
        note(QString::fromUtf8(body));
    return trace.join(u'\n').toStdString();
}

class RequestCapture : public testing::Test
{
protected:
    ReporterUnderTest host;
    RecordingManager recording{host.reporter};
    QNetworkAccessManager plain;
    Answer answer;
    bool isFirstCut = false; ///< the connection is cut after the first of two requests
    ScriptedServer server{[this](const Request &request) {
        if (isFirstCut && server.requests().size() % 2 == 1)
            return Answer{.cut = Answer::Cut::BeforeAnswer};
        return request.path == "/other" ? Answer{.body = "other"} : answer;
    }};

    [[nodiscard]] Request lastRequest() const
    {
        return server.requests().isEmpty() ? Request() : server.requests().last();
    }
    /// The host notices the same with the recording as without it, and the server gets the same.
    void expectTransparent(const Exchange &exchange)
    {
        answer = exchange.answer;
        for (const auto reading : {Reading::WhenFinished, Reading::InPieces, Reading::Never}) {
            const auto expected = noticed(plain, exchange, server.url(), reading);
            const auto sent = lastRequest();
            EXPECT_EQ(noticed(recording, exchange, server.url(), reading), expected) << exchange.name;
            const auto sentNow = lastRequest();
            EXPECT_TRUE(sentNow.method == sent.method && sentNow.body == sent.body) << exchange.name;
            const auto record = host.last();
            EXPECT_EQ(record.url, server.url()) << exchange.name;
            EXPECT_EQ(record.responseBody, exchange.recordedBody.value_or(*record.responseBody))
                << exchange.name;
            EXPECT_EQ(record.requestBody,
                      QString::fromUtf8(sentNow.body.left(limit))
                          + (sentNow.body.size() > limit ? WexelBodyCutMark : QLatin1String()))
                << exchange.name;
            EXPECT_GT(*record.duration, 0) << exchange.name;
        }
    }
};

QNetworkReply *get(QNetworkAccessManager &manager, const QNetworkRequest &request)
{
    return manager.get(request);
}

QByteArray deflated(const QByteArray &body)
{
    return qCompress(body).mid(4); // without Qt's length in front
}

TEST_F(RequestCapture, ChangesNothingOfAnswersThatArrive)
{
    QByteArray longBody; // more than Qt keeps in one piece
    for (int number = 0; longBody.size() < 150'000; ++number)
        longBody += QByteArray::number(number) + ' ';
    const QString cut = QString::fromUtf8(longBody.left(limit)) + WexelBodyCutMark;
    const QByteArray encoding = "Content-Encoding: deflate\r\n";
    expectTransparent({"small", get});
    EXPECT_EQ(host.last().statusCode, QStringLiteral("200"));
    EXPECT_EQ(host.last().method, QStringLiteral("GET"));
    EXPECT_EQ(host.last().requestHeaders->value(QStringLiteral("Content-Type")),
              QStringLiteral("text/plain"));
    expectTransparent({"long", get, {.body = longBody}, cut});
    expectTransparent({"none", get, {.status = 204, .body = {}}, {}});
    expectTransparent({"image", get, {.body = QByteArray::fromHex("89504e470d0a1aff")}, {}});
    expectTransparent(
        {"compressed", get, {.body = deflated("{1}"), .headers = encoding}, QStringLiteral("{1}")});
    expectTransparent({"compressed, long", get, {.body = deflated(longBody), .headers = encoding}, cut});
    expectTransparent({"not found", get, {.status = 404, .headers = "X-Why: not here\r\n"}});
    EXPECT_EQ(host.last().statusCode, QStringLiteral("404"));
    EXPECT_EQ(host.last().responseHeaders->value(QStringLiteral("X-Why")), QStringLiteral("not here"));
    expectTransparent({"redirected", get, {.status = 302, .location = "/other"}, QStringLiteral("other")});
    EXPECT_EQ(host.last().statusCode, QStringLiteral("200"));
}

TEST_F(RequestCapture, ChangesNothingOfRequestsThatFail)
{
    const QString none;
    expectTransparent({"cut before the answer", get, {.cut = Answer::Cut::BeforeAnswer}, none});
    EXPECT_EQ(host.last().statusCode, none);
    expectTransparent({"timed out",
                       [](auto &manager, auto request) {
                           request.setTransferTimeout(50);
                           return manager.get(request);
                       },
                       {.after = [] { return false; }},
                       none});
    const Exchange cut{"cut within the answer",
                       get,
                       {.body = "half", .cut = Answer::Cut::WithinAnswer},
                       QStringLiteral("ha")};
    expectTransparent(cut);
    expectTransparent({"aborted", get, {.body = "on and ", .isEndless = true}, {}, [](QNetworkReply &reply) {
                           reply.abort();
                       }});
    EXPECT_TRUE(host.last().responseBody->startsWith(u"on and"));
    EXPECT_EQ(host.last().statusCode, QStringLiteral("200"));
    answer = {.status = 302, .location = "http://127.0.0.1:1/"}; // to nobody
    const std::unique_ptr<QNetworkReply> lost(recording.get(QNetworkRequest(QUrl(server.url()))));
    ASSERT_TRUE(spinUntil([&lost] { return lost->isFinished(); }));
    EXPECT_EQ(host.last().statusCode, none);
    server.close();
    expectTransparent({"refused", get, {}, none});
}

TEST_F(RequestCapture, ChangesNothingOfUploads)
{
    const auto upload = [](QNetworkAccessManager &manager, const QNetworkRequest &request, QIODevice *body) {
        QNetworkReply *reply = manager.post(request, body);
        body->setParent(reply);
        return reply;
    };
    const QByteArray lines = QByteArray("y\n").repeated(25'000);
    const auto streamed = [=](bool isBuffered) {
        return [=](QNetworkAccessManager &manager, QNetworkRequest request) {
            request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, !isBuffered);
            if (!isBuffered)
                request.setHeader(QNetworkRequest::ContentLengthHeader, lines.size());
            auto *process = new QProcess;
            process->start(QStringLiteral("sh"),
                           {QStringLiteral("-c"), QStringLiteral("yes | head -c 50000")});
            return upload(manager, request, process);
        };
    };
    expectTransparent({"bytes", [](auto &manager, auto request) { return manager.put(request, "sent"); }});
    EXPECT_EQ(host.last().method, QStringLiteral("PUT"));
    expectTransparent({"verb", [](auto &manager, auto request) {
                           return manager.sendCustomRequest(request, "PATCH", "sent");
                       }});
    EXPECT_EQ(host.last().method, QStringLiteral("PATCH"));
    expectTransparent({"form", [](auto &manager, auto request) {
                           auto *form = new QHttpMultiPart;
                           form->setBoundary("boundary");
                           QHttpPart part;
                           part.setBody("field");
                           form->append(part);
                           auto *reply = manager.post(request, form);
                           form->setParent(reply);
                           return reply;
                       }});
    EXPECT_TRUE(server.requests().last().body.contains("field"));
    for (const bool isBuffered : {true, false}) {
        expectTransparent({"stream", streamed(isBuffered)});
        EXPECT_EQ(server.requests().last().body, lines);
    }
    isFirstCut = true;
    expectTransparent({"rest of a file, sent twice", [=](auto &manager, auto request) {
                           auto *file = new QTemporaryFile;
                           EXPECT_TRUE(file->open() && file->write("headrest") == 8 && file->seek(4));
                           return upload(manager, request, file);
                       }});
    EXPECT_EQ(server.requests().last().body, "rest");
}

TEST_F(RequestCapture, LeavesTheCacheOfTheHostAsItIs)
{
    const QByteArray kept = "Cache-Control: max-age=1000\r\n";
    const auto withCache = [&](QNetworkAccessManager &manager, const QTemporaryDir &folder) {
        auto *cache = new QNetworkDiskCache;
        cache->setCacheDirectory(folder.path());
        manager.setCache(cache);
    };
    for (const bool isCompressed : {false, true}) {
        answer = {.body = isCompressed ? deflated("body") : "body",
                  .headers = isCompressed ? kept + "Content-Encoding: deflate\r\n" : kept};
        for (const auto reading : {Reading::WhenFinished, Reading::InPieces}) {
            const QTemporaryDir folders[2];
            withCache(plain, folders[0]);
            withCache(recording, folders[1]);
            const Exchange exchange{"cached", get};
            (void)noticed(plain, exchange, server.url(), reading);
            (void)noticed(recording, exchange, server.url(), reading);
            const bool isCached = plain.cache()->metaData(QUrl(server.url())).isValid();
            EXPECT_EQ(recording.cache()->metaData(QUrl(server.url())).isValid(), isCached);
            EXPECT_EQ(host.last().responseBody,
                      isCompressed && reading == Reading::InPieces ? QString() : QStringLiteral("body"));
            const auto requestsBefore = server.requests().size();
            (void)noticed(recording, exchange, server.url(), reading);
            EXPECT_EQ(server.requests().size() == requestsBefore, isCached);
        }
    }
}

TEST_F(RequestCapture, KeepsTheLimitOfTheHostsReadBuffer)
{
    constexpr qint64 bufferSize = 2000;
    answer = {.body = "on and ", .isEndless = true};
    QNetworkReply *reply = recording.get(QNetworkRequest(QUrl(server.url())));
    reply->setReadBufferSize(bufferSize);
    QByteArray read;
    qint64 most = 0;
    bool wasFull = false;
    ASSERT_TRUE(spinUntil([&] {
        const qint64 unread = reply->bytesAvailable();
        most = std::max(most, unread);
        if (std::exchange(wasFull, unread >= bufferSize)) // gives more bytes a turn to come too early
            read += reply->readAll();
        return read.size() > 2 * limit;
    }));
    EXPECT_EQ(most, bufferSize);
    reply->abort();
    EXPECT_EQ(host.last().responseBody, QString::fromUtf8(read.left(limit)) + WexelBodyCutMark);
    delete reply;
}

TEST_F(RequestCapture, RecordsRepliesThatNeverFinish)
{
    answer = {.body = "on and ", .isEndless = true};
    auto manager = std::make_unique<RecordingManager>(host.reporter);
    QSet<QNetworkReply *> answered;
    for (int number = 0; number < 2; ++number) {
        auto *reply = manager->get(QNetworkRequest(QUrl(server.url())));
        QObject::connect(reply, &QNetworkReply::readyRead, [&, reply] { answered.insert(reply); });
    }
    ASSERT_TRUE(spinUntil([&] { return answered.size() == 2; }));
    delete *answered.begin();
    manager.reset();
    const auto records = host.records();
    ASSERT_EQ(records.size(), 2);
    for (const auto &record : records) {
        EXPECT_EQ(record.statusCode, QStringLiteral("200"));
        EXPECT_TRUE(record.responseBody->startsWith(u"on and"));
        EXPECT_GT(*record.duration, 0);
    }
}

TEST(WXLNetworkAccessManager, RecordsForTheReportsOfTheApplication)
{
    ScriptedServer server([](const Request &) { return Answer{}; });
    auto &reporter = WXLNetworkRequestReporter::shared();
    WXLNetworkAccessManager manager;
    int finished = 0;
    QObject::connect(&manager, &QNetworkAccessManager::finished, [&] { ++finished; });
    const QString host
        = QStringLiteral("localhost"); // to the reporter another one than the backend's 127.0.0.1
    manager.get(QNetworkRequest(QUrl(QStringLiteral("http://%1:%2/").arg(host).arg(server.serverPort()))));
    manager.get(QNetworkRequest(QUrl(reporter.baseUrl())));
    manager.get(QNetworkRequest(QUrl(QStringLiteral("data:,text"))));
    manager.connectToHost(host, server.serverPort());
    ASSERT_TRUE(spinUntil([&] { return finished == 4; }));
    for (int turn = 0; turn < 3; ++turn)
        reporter.timeEventQueue().workingQueue().waitUntilDone();
    const auto records = WXLNetworkRequestReporter::networkRequestHistory(WXLAppRepository::sharedInstance())
                             .value_or(QVariantList());
    ASSERT_EQ(records.size(), 1);
    const auto record
        = std::dynamic_pointer_cast<NetworkRequestRecord>(records[0].value<std::shared_ptr<SecureCoding>>());
    EXPECT_EQ(record->responseBody, QStringLiteral("{}"));
}

TEST_F(RequestCapture, WorksOnEveryThread)
{
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> answers = 0;
    for (int number = 0; number < 3; ++number) {
        threads.emplace_back(QThread::create([&] {
            RecordingManager manager(host.reporter);
            for (int i = 0; i < 10; ++i) {
                QEventLoop loop;
                auto *reply = manager.sendCustomRequest(QNetworkRequest(QUrl(server.url())), "SEND", "sent");
                QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
                loop.exec();
                answers += reply->readAll() == "{}" ? 1 : 0;
                delete reply;
            }
        }));
        threads.back()->start();
    }
    ASSERT_TRUE(spinUntil([&] { return std::ranges::all_of(threads, &QThread::isFinished); }));
    EXPECT_EQ(answers, 30);
    EXPECT_EQ(host.records().size(), 30);
}

} // namespace

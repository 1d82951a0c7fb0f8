#include <QFile>
#include <QHttpMultiPart>
#include <QNetworkDiskCache>
#include <QTemporaryFile>
#include <QThread>

#include "Business/CapturedHost.h"

using namespace wexel;

namespace {

using Answer = ScriptedServer::Answer;
using Request = ScriptedServer::Request;

constexpr qsizetype limit = WXLNetworkAccessManager::maximumBodyBytes;

/// A body that is made while it is sent: bytes come piece by piece, and nobody knows how many there will be.
class Source final : public QIODevice
{
public:
    Source(QByteArrayList pieces, QObject *parent) : QIODevice(parent), m_pieces(std::move(pieces))
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        QMetaObject::invokeMethod(
            this, [this] { next(); }, Qt::QueuedConnection);
    }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_ready.size(); }

protected:
    qint64 readData(char *data, qint64 maximum) override
    {
        const qint64 size = std::min<qint64>(maximum, m_ready.size());
        std::copy_n(m_ready.constData(), size, data);
        m_ready.remove(0, size);
        return size == 0 && m_pieces.isEmpty() ? -1 : size;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    void next()
    {
        if (m_pieces.isEmpty()) {
            Q_EMIT readChannelFinished();
            return;
        }
        m_ready += m_pieces.takeFirst();
        Q_EMIT readyRead();
        QMetaObject::invokeMethod(
            this, [this] { next(); }, Qt::QueuedConnection);
    }

    QByteArrayList m_pieces;
    QByteArray m_ready;
};

/// When a host takes the bytes of its answer.
enum class Reading { WhenFinished, InPieces, Never };

struct Exchange {
    const char *name;
    std::function<QNetworkReply *(QNetworkAccessManager &, const QNetworkRequest &)> make;
    Answer answer = {};
    std::optional<QString> recordedBody
        = QStringLiteral("{}"); ///< of the answer; nothing: as the time allows
    QString recordedUpload = {};
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
            EXPECT_EQ(record.requestBody, exchange.recordedUpload) << exchange.name;
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
    const QString cut = QString::fromUtf8(longBody.left(limit)) + WXLNetworkAccessManager::cutMark;
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
    expectTransparent(
        {"aborted", get, {.body = "on and ", .isEndless = true}, {}, {}, [](QNetworkReply &reply) {
             reply.abort();
         }});
    EXPECT_TRUE(host.last().responseBody->startsWith(u"on and"));
    EXPECT_EQ(host.last().statusCode, QStringLiteral("200"));
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
    const auto streamed = [=](bool isBuffered) {
        return [=](QNetworkAccessManager &manager, QNetworkRequest request) {
            const QByteArrayList pieces{"first, ", "second, ", "third"};
            if (!isBuffered) {
                request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
                request.setHeader(QNetworkRequest::ContentLengthHeader, pieces.join().size());
            }
            return upload(manager, request, new Source(pieces, nullptr));
        };
    };
    const QString pieces = QStringLiteral("first, second, third");
    const QString answered = QStringLiteral("{}");
    expectTransparent({"bytes",
                       [](auto &manager, auto request) { return manager.put(request, "sent"); },
                       {},
                       answered,
                       QStringLiteral("sent")});
    EXPECT_EQ(host.last().method, QStringLiteral("PUT"));
    expectTransparent(
        {"verb",
         [](auto &manager, auto request) { return manager.sendCustomRequest(request, "PATCH", "sent"); },
         {},
         answered,
         QStringLiteral("sent")});
    EXPECT_EQ(host.last().method, QStringLiteral("PATCH"));
    expectTransparent({"stream", streamed(true), {}, answered, pieces});
    EXPECT_EQ(server.requests().last().body, pieces.toUtf8());
    expectTransparent({"stream, not buffered", streamed(false), {}, answered, pieces});
    isFirstCut = true;
    expectTransparent({"rest of a file, sent twice",
                       [=](auto &manager, auto request) {
                           auto *file = new QTemporaryFile;
                           EXPECT_TRUE(file->open() && file->write("headrest") == 8 && file->seek(4));
                           return upload(manager, request, file);
                       },
                       {},
                       answered,
                       QStringLiteral("rest")});
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
    EXPECT_EQ(host.last().responseBody,
              QString::fromUtf8(read.left(limit)) + WXLNetworkAccessManager::cutMark);
    delete reply;
}

TEST_F(RequestCapture, RecordsRepliesThatNeverFinish)
{
    answer = {.body = "on and ", .isEndless = true};
    auto manager = std::make_unique<RecordingManager>(host.reporter);
    auto *deleted = manager->get(QNetworkRequest(QUrl(server.url())));
    auto *outlived = manager->get(QNetworkRequest(QUrl(server.url())));
    ASSERT_TRUE(spinUntil([&] { return deleted->bytesAvailable() > 0 && outlived->bytesAvailable() > 0; }));
    delete deleted;
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

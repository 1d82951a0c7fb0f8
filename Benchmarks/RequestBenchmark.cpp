// RequestBenchmark FOLDER   what recording costs, with a store in FOLDER (on a disk, not in memory).
//
// For histories of 0, 1000 and 5000 records of 2 KB prints, behind the number of records,
//
//   plain_us N      from making a small request on the loopback interface to its answer: with QNetworkAccessManager,
//   recorded_us N   and with the recording one in the same run, turn and turn about
//   plain_thread_us N, recorded_thread_us N   processor time of the host's thread for one request
//   plain_cpu_us N, recorded_cpu_us N         of the whole process, the server included
//   push_us N       one more record: archived, and the whole history handed to the store
//   flush_us N      the store's write of that history to the disk, at most every 0.9 s
//   written_kb N    what that write puts on the disk
//   history_kb N    the history's size

#include <algorithm>
#include <cstdio>

#include <sys/resource.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QNetworkReply>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include "Business/NetworkRequestRecord.h"
#include "Business/RequestCapture.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLNetworkRequestReporter.h"
#include "Platform/SerialQueue.h"
#include "Platform/ThreadPool.h"

using namespace wexel;

namespace {

constexpr int rounds = 80;
constexpr int requestsInARound = 25;
constexpr int pushes = 200;
constexpr int flushes = 20;
constexpr int recordBytes = 2048;

/// Answers every request with a few bytes, on a thread of its own.
class Server
{
public:
    Server()
    {
        m_thread.start();
        m_server.moveToThread(&m_thread);
        QMetaObject::invokeMethod(
            &m_server, [this] { listen(); }, Qt::BlockingQueuedConnection);
    }
    ~Server()
    {
        QMetaObject::invokeMethod(
            &m_server, [this] { m_server.close(); }, Qt::BlockingQueuedConnection);
        m_thread.quit();
        m_thread.wait();
    }
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;
    [[nodiscard]] QUrl url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_port)); }

private:
    void listen()
    {
        m_server.listen(QHostAddress::LocalHost);
        m_port = m_server.serverPort();
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            auto *socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket] {
                if (socket->readAll().endsWith("\r\n\r\n"))
                    socket->write("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n"
                                  "Content-Length: 13\r\n\r\n{\"ok\": true}\n");
            });
        });
    }

    QThread m_thread;
    QTcpServer m_server;
    quint16 m_port = 0;
};

class RecordingManager final : public QNetworkAccessManager
{
public:
    explicit RecordingManager(WXLNetworkRequestReporter &reporter) : m_reporter(reporter) { }

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *body) override
    {
        return captured(m_reporter, operation, request, body, [&](QIODevice *passed) {
            return QNetworkAccessManager::createRequest(operation, request, passed);
        });
    }

private:
    WXLNetworkRequestReporter &m_reporter;
};

qint64 microseconds(const QElapsedTimer &timer)
{
    return timer.nsecsElapsed() / 1000;
}

qint64 cpuMicroseconds(__rusage_who who)
{
    rusage usage{};
    getrusage(who, &usage);
    const auto micros = [](const timeval &time) { return qint64(time.tv_sec) * 1'000'000 + time.tv_usec; };
    return micros(usage.ru_utime) + micros(usage.ru_stime);
}

qint64 bytesOnTheDisk()
{
    QFile file(QStringLiteral("/proc/self/io"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read /proc/self/io");
    const QByteArray name = "\nwrite_bytes: ";
    const QByteArray counters = file.readAll();
    const auto begin = counters.indexOf(name) + name.size();
    return counters.mid(begin, counters.indexOf('\n', begin) - begin).toLongLong();
}

qint64 median(std::vector<qint64> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The times of single requests by one manager, and the processor time of all.
struct Costs {
    std::vector<qint64> times;
    qint64 ofThread = 0;
    qint64 ofProcess = 0;

    void measure(QNetworkAccessManager &manager, const QUrl &url)
    {
        const qint64 threadBefore = cpuMicroseconds(RUSAGE_THREAD);
        const qint64 processBefore = cpuMicroseconds(RUSAGE_SELF);
        for (int i = 0; i < requestsInARound; ++i) {
            QElapsedTimer timer;
            timer.start();
            QEventLoop loop;
            auto *reply = manager.get(QNetworkRequest(url));
            QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
            loop.exec();
            if (reply->readAll().isEmpty())
                qFatal("no answer");
            delete reply;
            times.push_back(microseconds(timer));
        }
        ofThread += cpuMicroseconds(RUSAGE_THREAD) - threadBefore;
        ofProcess += cpuMicroseconds(RUSAGE_SELF) - processBefore;
    }
    [[nodiscard]] qint64 eachOf(qint64 sum) const { return sum / qint64(times.size()); }
};

/// A recorder whose history keeps `size` records, and drops what is added on `prune`.
class Recorder
{
public:
    Recorder(const QString &path, int size)
        : m_repository(makeUserDefaults(path, ThreadPool::runLater))
        , reporter(m_repository, WXLDateProvider::sharedInstance(), {})
    {
        for (int i = 0; i < size; ++i)
            push({}); // without a time, which is never too old
        settle();
        flush();
    }
    void push(const std::optional<QString> &timestamp)
    {
        QByteArray body;
        for (int i = 0; body.size() < recordBytes; ++i)
            body += QByteArray::number(m_next++ * 7919 % 100'003) + ',';
        const auto record = std::make_shared<NetworkRequestRecord>(
            QStringLiteral("GET"), QStringLiteral("http://api/"), QString(), QVariantMap(), timestamp);
        record->responseBody = QString::fromUtf8(body);
        auto queue = reporter.timeEventQueue();
        queue.push(record, {});
    }
    void prune()
    {
        reporter.removeRecordsOlderThan(QDateTime::currentDateTime().addDays(1));
        settle();
    }
    void settle()
    {
        for (int turn = 0; turn < 3; ++turn)
            reporter.timeEventQueue().workingQueue().waitUntilDone();
    }
    void flush() { m_repository.userDefaults().synchronize(); }
    [[nodiscard]] qint64 historyBytes() const
    {
        return m_repository.getData(reporter.timeEventQueue().key()).value_or(QByteArray()).size();
    }

private:
    WXLAppRepository m_repository;
    qint64 m_next = 0;

public:
    WXLNetworkRequestReporter reporter;
};

void print(int size, const char *name, qint64 value)
{
    std::printf("%d %s %lld\n", size, name, static_cast<long long>(value));
    std::fflush(stdout);
}

void measureRequests(Recorder &recorder, int size)
{
    const Server server;
    QNetworkAccessManager plain;
    RecordingManager recording(recorder.reporter);
    Costs warmUp;
    warmUp.measure(plain, server.url());
    warmUp.measure(recording, server.url());
    recorder.prune();
    Costs ofPlain;
    Costs ofRecording;
    for (int round = 0; round < rounds; ++round) {
        ofPlain.measure(plain, server.url());
        ofRecording.measure(recording, server.url());
        recorder.prune();
    }
    print(size, "plain_us", median(ofPlain.times));
    print(size, "recorded_us", median(ofRecording.times));
    print(size, "plain_thread_us", ofPlain.eachOf(ofPlain.ofThread));
    print(size, "recorded_thread_us", ofRecording.eachOf(ofRecording.ofThread));
    print(size, "plain_cpu_us", ofPlain.eachOf(ofPlain.ofProcess));
    print(size, "recorded_cpu_us", ofRecording.eachOf(ofRecording.ofProcess));
}

void measurePushes(Recorder &recorder, int size)
{
    std::vector<qint64> ofPush;
    std::vector<qint64> ofFlush;
    std::vector<qint64> written;
    const QString now = WXLDateProvider::sharedInstance().timestamp();
    for (int i = 0; i < pushes; ++i) {
        QElapsedTimer timer;
        timer.start();
        recorder.push(now);
        recorder.settle();
        ofPush.push_back(microseconds(timer));
        if (i % (pushes / flushes) != 0)
            continue;
        const qint64 before = bytesOnTheDisk();
        timer.start();
        recorder.flush();
        ofFlush.push_back(microseconds(timer));
        written.push_back(bytesOnTheDisk() - before);
    }
    print(size, "push_us", median(ofPush));
    print(size, "flush_us", median(ofFlush));
    print(size, "written_kb", median(written) / 1024);
    print(size, "history_kb", recorder.historyBytes() / 1024);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        return 2;
    for (const int size : {0, 1000, 5000}) {
        Recorder recorder(QStringLiteral("%1/history-%2").arg(QString::fromLocal8Bit(argv[1])).arg(size),
                          size);
        measureRequests(recorder, size);
        measurePushes(recorder, size);
    }
}

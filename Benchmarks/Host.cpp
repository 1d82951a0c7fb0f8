// The host of the benchmarks: built with and without the library, for QCoreApplication and for Qt Quick.
//
//   start [MILLISECONDS]   starts the library, prints "start_us N", and after that time of an idle event loop
//                          "resident_kb N" and "private_kb N"
//   idle WARM MILLISECONDS URL
//                          fills the histories of requests (to that address) and, with a window, of taps, and prints,
//                          after WARM milliseconds, what that time of an idle event loop costs: "cpu_us N",
//                          "written_bytes N" (to the disk), "wakeups N" (of any thread) and "resident_kb N"
//   report COUNT           prints "report_us N" for each of COUNT automatic reports, "screenshot_us N" with a picture
//   drain                  prints "drain_ms N" and "peak_kb N" when all stored reports have been sent

#include <chrono>
#include <cstdio>
#include <ctime>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <QUrl>

#ifdef WITH_QUICK
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
using Application = QGuiApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

#ifdef WITH_WEXEL
#include <QNetworkReply>
#include <Wexel/WXLNetworkAccessManager.h>
#include <Wexel/WXLWexel.h>
using wexel::WXLWexel;
#endif

namespace {

void print(const char *name, qint64 value)
{
    std::printf("%s %lld\n", name, static_cast<long long>(value));
    std::fflush(stdout);
}

/// The sum of the lines that begin with one of the names.
qint64 field(const QByteArray &path, const QByteArrayList &names)
{
    QFile file(QString::fromUtf8(path));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", path.constData());
    qint64 sum = 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const auto colon = line.indexOf(':');
        if (names.contains(line.left(colon)))
            sum += line.mid(colon + 1).simplified().split(' ').value(0).toLongLong();
    }
    return sum;
}

template <typename Action>
void printMicroseconds(const char *name, Action action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    print(name, timer.nsecsElapsed() / 1000);
}

void startLibrary()
{
#ifdef WITH_WEXEL
    WXLWexel::startWithInvocationEvents(wexel::WexelInvocationEventMotion);
#endif
}

void start(int settleMilliseconds)
{
    printMicroseconds("start_us", startLibrary);
    if (settleMilliseconds == 0)
        return QCoreApplication::exit();
    QTimer::singleShot(settleMilliseconds, [] {
        print("resident_kb", field("/proc/self/status", {"VmRSS"}));
        print("private_kb", field("/proc/self/smaps_rollup", {"Private_Clean", "Private_Dirty"}));
        QCoreApplication::exit();
    });
}

struct Cost {
    qint64 cpu = static_cast<qint64>(std::clock()) * 1'000'000 / CLOCKS_PER_SEC;
    qint64 written = field("/proc/self/io", {"write_bytes"});
    qint64 wakeups = [] {
        qint64 sum = 0;
        for (const QString &thread :
             QDir(QStringLiteral("/proc/self/task")).entryList(QDir::NoDotAndDotDot | QDir::Dirs))
            sum += field("/proc/self/task/" + thread.toUtf8() + "/status", {"voluntary_ctxt_switches"});
        return sum;
    }();
};

constexpr int requestsBefore = 200;
constexpr int tapsBefore = 200;

void fillRequests(const QUrl &url)
{
#ifdef WITH_WEXEL
    auto *manager = new wexel::WXLNetworkAccessManager(qApp);
    auto *left = new int(requestsBefore);
    QObject::connect(manager, &QNetworkAccessManager::finished, manager,
                     [manager, url, left](QNetworkReply *reply) {
                         reply->deleteLater();
                         if (--*left > 0)
                             manager->get(QNetworkRequest(url));
                     });
    manager->get(QNetworkRequest(url));
#else
    Q_UNUSED(url)
#endif
}

void fillTaps()
{
#ifdef WITH_QUICK
    auto *turn = new QTimer(qApp);
    QObject::connect(turn, &QTimer::timeout, [turn, left = tapsBefore]() mutable {
        QWindow *window = QGuiApplication::focusWindow();
        if (window == nullptr)
            return;
        const QPointF middle(window->width() / 2.0, window->height() / 2.0);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, middle, window->mapToGlobal(middle), Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(window, &event);
        }
        if (--left == 0)
            turn->stop();
    });
    constexpr int betweenMilliseconds = 20; // more than the taps that count as one
    turn->start(betweenMilliseconds);
#endif
}

void idle(int warmMilliseconds, int milliseconds, const QUrl &url)
{
    startLibrary();
    fillRequests(url);
    fillTaps();
    QTimer::singleShot(warmMilliseconds, [milliseconds] {
        QTimer::singleShot(milliseconds, [before = Cost()] {
            const Cost after;
            print("cpu_us", after.cpu - before.cpu);
            print("written_bytes", after.written - before.written);
            print("wakeups", after.wakeups - before.wakeups);
            print("resident_kb", field("/proc/self/status", {"VmRSS"}));
            QCoreApplication::exit();
        });
    });
}

#ifdef WITH_WEXEL
void report(int count)
{
    startLibrary();
    auto *turn = new QTimer(qApp);
    QObject::connect(turn, &QTimer::timeout, [left = count]() mutable {
        printMicroseconds("report_us", [] { WXLWexel::autoReport(); });
        printMicroseconds("screenshot_us", [] { WXLWexel::autoReportWithAttachScreenshot(true); });
        if (--left == 0)
            QCoreApplication::exit();
    });
    constexpr int betweenMilliseconds = 50;
    turn->start(betweenMilliseconds);
}

QElapsedTimer drainTimer;

void endWhenDrained(QtMsgType, const QMessageLogContext &, const QString &line)
{
    if (!line.contains(u"All upload operations completed"))
        return;
    print("drain_ms", drainTimer.elapsed());
    print("peak_kb", field("/proc/self/status", {"VmHWM"}));
    QCoreApplication::exit();
}

void drain()
{
    qInstallMessageHandler(endWhenDrained);
    drainTimer.start();
    startLibrary();
}
#endif

void perform(const QStringList &arguments)
{
    if (arguments.value(1) == u"start")
        return start(arguments.value(2).toInt());
    if (arguments.value(1) == u"idle")
        return idle(arguments.value(2).toInt(), arguments.value(3).toInt(), QUrl(arguments.value(4)));
#ifdef WITH_WEXEL
    if (arguments.value(1) == u"report")
        return report(arguments.value(2).toInt());
    if (arguments.value(1) == u"drain")
        return drain();
#endif
    qFatal("what to do?");
}

} // namespace

int main(int argc, char **argv)
{
    Application application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("BenchmarkHost"));
    const auto begin = [&] { QTimer::singleShot(0, [&] { perform(QCoreApplication::arguments()); }); };
#ifdef WITH_QUICK
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nWindow { width: 390; height: 844; visible: true\n"
                      "Text { anchors.centerIn: parent; text: 'Hello' } }",
                      QUrl());
    const std::unique_ptr<QObject> root(component.create());
    auto *window = qobject_cast<QQuickWindow *>(root.get());
    if (window == nullptr)
        qFatal("%s", qPrintable(component.errorString()));
    QObject::connect(window, &QQuickWindow::frameSwapped, &application, begin, Qt::SingleShotConnection);
#else
    begin();
#endif
    return Application::exec();
}

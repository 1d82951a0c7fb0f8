// TapBenchmark FOLDER   what one call of the hit-test hook costs the main thread of a Qt Quick host with a thousand items
// in its window. Keeps its histories below FOLDER and prints, a thousand times each and in nanoseconds:
//
//   other_ns N     an event that is no press, the mean of a thousand
//   repeated_ns N  a press within 10 ms of the one before, the mean of a thousand
//   recorded_ns N  a press that is recorded, at the item that is found last

#include <cstdio>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLSessionReporter.h"
#include "Business/WXLUserEventReporter.h"
#include "Platform/NotificationCenter.h"
#include "Platform/SerialQueue.h"
#include "Presentation/Helpers/HitTestHook.h"

using namespace wexel;

namespace {

constexpr int rounds = 1000;
constexpr int callsPerRound = 1000;
constexpr int tapsBetweenChanges = 100; // of the application's state, which drop the taps before

/// The machine's clock, and as much later as the last press that is to be recorded needs it to be.
struct ShiftedClock final : Clock {
    qint64 shift = 0; // in seconds
    QDateTime now() const override { return QDateTime::currentDateTimeUtc().addSecs(shift); }
};

void print(const char *name, qint64 nanoseconds)
{
    std::printf("%s %lld\n", name, static_cast<long long>(nanoseconds));
}

qint64 meanOf(HitTestHook &hook, QObject &watched, QEvent &event)
{
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < callsPerRound; ++i)
        static_cast<QObject &>(hook).eventFilter(&watched, &event);
    return timer.nsecsElapsed() / callsPerRound;
}

void measure(QQuickWindow &window, const QPointF &place, const QString &folder)
{
    WXLAppRepository repository(makeUserDefaults(folder + QStringLiteral("/defaults"), [](auto, auto) {}));
    const SystemClock local;
    const WXLDateProvider dates(local);
    NotificationCenter notifications;
    WXLSessionReporter sessions(repository, dates, notifications, [](const QDateTime &) {});
    for (int i = 0; i < NUMBER_OF_SESSION_OBJECTS_TO_REPORT; ++i)
        sessions.reportState(sessionResignedActive);
    sessions.workingQueue().waitUntilDone();
    WXLUserEventReporter reporter(repository, dates);
    ShiftedClock clock;
    HitTestHook hook(
        clock, [&]() -> auto & { return reporter; });

    // The press last: events share the state of the device's point.
    QMouseEvent move(QEvent::MouseMove, place, window.mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
    QMouseEvent press(QEvent::MouseButtonPress, place, window.mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, {});
    for (int i = 0; i < rounds; ++i) {
        ++clock.shift;
        QElapsedTimer timer;
        timer.start();
        static_cast<QObject &>(hook).eventFilter(&window, &press);
        print("recorded_ns", timer.nsecsElapsed());
        print("repeated_ns", meanOf(hook, window, press));
        print("other_ns", meanOf(hook, window, move));
        reporter.eventQueue().workingQueue().waitUntilDone();
        if (i % tapsBetweenChanges == 0)
            reporter.removeRecordsOlderThan(dates.now());
    }
    const auto taps = WXLUserEventReporter::userEventHistory(repository).value_or(QVariantList());
    if (taps.size() < 2)
        qFatal("nothing was recorded");
}

constexpr char scene[] = R"(
import QtQuick
import QtQuick.Controls.Basic
ApplicationWindow {
    width: 390; height: 844; visible: true
    Page {
        anchors.fill: parent
        Button { objectName: "last"; text: "Pay" }
        Repeater {
            model: 250 // of four items each
            Rectangle { x: index; width: 80; height: 40
                Column { Text { text: index } Rectangle { width: 9; height: 9 } } }
        }
    }
})";

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(scene, QUrl());
    const std::unique_ptr<QObject> root(component.create());
    auto *window = qobject_cast<QQuickWindow *>(root.get());
    if (argc != 2 || window == nullptr)
        qFatal("TapBenchmark FOLDER %s", qPrintable(component.errorString()));
    const auto *button = window->findChild<QQuickItem *>(QStringLiteral("last"));
    measure(*window, button->mapToScene({button->width() / 2, button->height() / 2}),
            QString::fromLocal8Bit(argv[1]));
}

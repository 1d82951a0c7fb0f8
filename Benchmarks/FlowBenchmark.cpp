// FlowBenchmark quick|widgets [FLOWS]   opens and closes the reporting flow FLOWS (10) times over a host of 390 x 844 that
// shows a list of forty rows, and prints for each:
//
//   open_ms N       from the invocation to the first frame of the editor on its window
//   flow_mb N       resident memory with the flow open
//   closed_mb N     the same after it was closed
//
// and once: closed_mb of the host before the first flow, screenshot_us N, the picture of the host, and bake_us N, taking
// a stroke of 200 points into the image.

#include <cstdio>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include <Wexel/WXLWexel.h>

#include "Presentation/Coordinator/WXLScreenshotService.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Screen/WXLOverlayView.h"
#include "Presentation/Screen/WXLScreenshotView.h"

using namespace wexel;

namespace {

constexpr QSize hostSize(390, 844);
constexpr double nanosecondsInAMillisecond = 1e6;

void print(const char *name, double number)
{
    std::printf("%s %.2f\n", name, number);
}

double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    constexpr double pageSize = 4096;
    return file.readAll().split(' ').value(1).toDouble() * pageSize / 1048576;
}

template <typename Condition>
void waitUntil(Condition condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
}

/// Windows of a host that is as plain as possible.
struct Host {
    QQmlEngine engine;
    std::unique_ptr<QObject> quick;
    QListWidget list;

    explicit Host(bool isQuick)
    {
        if (!isQuick) {
            for (int row = 0; row < 40; ++row)
                list.addItem(QStringLiteral("Row %1").arg(row));
            list.resize(hostSize);
            list.show();
            return;
        }
        QQmlComponent component(&engine);
        component.setData(
            "import QtQuick\nWindow { width: 390; height: 844; visible: true\n"
            "ListView { anchors.fill: parent; model: 40\n"
            "delegate: Text { required property int index; text: 'Row ' + index; padding: 8 } } }",
            QUrl());
        quick.reset(component.create());
    }
};

QQuickWindow *displayWindow()
{
    for (QWindow *window : QGuiApplication::allWindows()) {
        if (isMarked(window, displayWindowProperty) && window->isVisible())
            return qobject_cast<QQuickWindow *>(window);
    }
    return nullptr;
}

void measureScreenshot()
{
    constexpr int rounds = 20;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < rounds; ++i)
        (void)WXLScreenshotService::sharedInstance().takeScreenshot();
    print("screenshot_us", static_cast<double>(timer.nsecsElapsed()) / rounds / 1000);
}

void measureBake(const QQuickWindow &window)
{
    auto *canvas = window.contentItem()->findChild<WXLScreenshotView *>();
    WXLOverlayView &overlay = canvas->overlayView();
    overlay.touchesBegan({10, 10});
    for (int i = 0; i < 200; ++i)
        overlay.touchesMoved({10.0 + i, 100 + 50.0 * (i % 20) / 20});
    QElapsedTimer timer;
    timer.start();
    overlay.touchesEnded();
    print("bake_us", static_cast<double>(timer.nsecsElapsed()) / 1000);
}

void runFlow(bool isFirst)
{
    bool hasFrame = false;
    QElapsedTimer timer;
    timer.start();
    WXLWexel::manualStart();
    QPointer<QQuickWindow> window = displayWindow();
    if (!window)
        qFatal("No flow was opened");
    QObject::connect(window, &QQuickWindow::frameSwapped, window, [&] { hasFrame = true; });
    waitUntil([&] { return hasFrame; });
    print("open_ms", static_cast<double>(timer.nsecsElapsed()) / nanosecondsInAMillisecond);
    constexpr int animationMilliseconds = 500;
    waitUntil([&] { return timer.hasExpired(animationMilliseconds); });
    print("flow_mb", residentMegabytes());
    if (isFirst)
        measureBake(*window);
    window->close();
    waitUntil([&] { return !window; });
    print("closed_mb", residentMegabytes());
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const Host host(application.arguments().value(1) == u"quick");
    waitUntil([] { return QGuiApplication::focusWindow() != nullptr; });
    WXLWexel::startWithInvocationEvents(WexelInvocationEventReserved);
    measureScreenshot();
    print("closed_mb", residentMegabytes());
    const int flows = std::max(1, application.arguments().value(2, QStringLiteral("10")).toInt());
    for (int flow = 0; flow < flows; ++flow)
        runFlow(flow == 0);
    return 0;
}

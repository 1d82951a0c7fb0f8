// FlowBenchmark quick|widgets [FLOWS]   opens and closes the reporting flow FLOWS (10) times over a host of 390 x 844 that
// shows a list of forty rows, and prints for each:
//
//   open_ms N       from the invocation to the first frame of the editor on its window
//   flow_mb N       resident memory with the flow open
//   closed_mb N     the same after it was closed
//
// and once: closed_mb of the host before the first flow; screenshot_us N, the picture of the host; bake_us N, taking a
// stroke of 200 points into the image; then through all screens:
//
//   compose_ms N    from Next to the first frame with the compose screen
//   submit_ms N     from Submit to the window gone, its animation of 400 ms included
//   late N, frames N   frames that took longer than 16 ms to prepare and to draw, and all of them, with ACTION: animating
//                   (the screens that come and go), typing (a character a frame), scrolling (the inspect screen)

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

#include "Presentation/Coordinator/NavigationController.h"
#include "Presentation/Coordinator/WXLScreenshotService.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/ReportCompose/WXLReportComposeViewController.h"
#include "Presentation/Screen/WXLOverlayView.h"
#include "Presentation/Screen/WXLScreenshotVC.h"
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

/// Counts the frames of a window and those that kept the main thread for longer than a frame may last.
class FrameCounter
{
public:
    FrameCounter(QQuickWindow &window, const char *action) : m_action(action)
    {
        QObject::connect(
            &window, &QQuickWindow::beforeSynchronizing, &m_context, [this] { m_timer.start(); },
            Qt::DirectConnection);
        QObject::connect(
            &window, &QQuickWindow::frameSwapped, &m_context,
            [this] {
                constexpr qint64 frame = 16;
                ++m_frames;
                m_late += m_timer.isValid() && m_timer.elapsed() > frame ? 1 : 0;
            },
            Qt::DirectConnection);
    }
    ~FrameCounter() { std::printf("late %d, frames %d %s\n", m_late, m_frames, m_action); }
    [[nodiscard]] int frames() const { return m_frames; }

private:
    QObject m_context;
    const char *m_action;
    QElapsedTimer m_timer;
    int m_frames = 0;
    int m_late = 0;
};

NavigationController &navigationOf(const QQuickWindow &window)
{
    return *window.contentItem()->findChild<NavigationController *>();
}

void waitForScreen(const QQuickWindow &window, const char *className)
{
    const NavigationController &navigation = navigationOf(window);
    waitUntil([&] { return navigation.isEnabled() && navigation.topViewController()->inherits(className); });
}

void type(QQuickWindow &window)
{
    const FrameCounter counter(window, "typing");
    for (int letter = 0; letter < 200; ++letter) {
        const int before = counter.frames();
        const QString text = letter % 8 == 7 ? QStringLiteral(" ") : QStringLiteral("w");
        QKeyEvent press(QEvent::KeyPress, Qt::Key_W, {}, text);
        QCoreApplication::sendEvent(&window, &press);
        waitUntil([&] { return counter.frames() > before; });
    }
}

QQuickItem *scrollableOf(QQuickItem *item)
{
    if (item->inherits("QQuickFlickable") && item->property("contentHeight").toDouble() > item->height())
        return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *found = scrollableOf(child))
            return found;
    }
    return nullptr;
}

void scroll(QQuickWindow &window)
{
    QQuickItem *list = scrollableOf(navigationOf(window).topViewController());
    const FrameCounter counter(window, "scrolling");
    const double most = list->property("contentHeight").toDouble() - list->height();
    for (int way = 0; way < 400; way += 4) {
        const int before = counter.frames();
        list->setProperty("contentY", most * (way % 200) / 200);
        waitUntil([&] { return counter.frames() > before; });
    }
}

void runThroughAllScreens()
{
    WXLWexel::manualStart();
    QPointer<QQuickWindow> window = displayWindow();
    waitUntil([&] { return window->isExposed(); });
    QElapsedTimer timer;
    {
        const FrameCounter counter(*window, "animating");
        timer.start();
        const int before = counter.frames();
        QMetaObject::invokeMethod(window->contentItem()->findChild<WXLScreenshotVC *>(), "nextButtonTapped");
        waitUntil([&] { return counter.frames() > before; });
        print("compose_ms", static_cast<double>(timer.nsecsElapsed()) / nanosecondsInAMillisecond);
        waitForScreen(*window, "wexel::WXLReportComposeViewController");
    }
    type(*window);
    auto *compose = window->contentItem()->findChild<WXLReportComposeViewController *>();
    compose->inspectButtonPressed();
    waitForScreen(*window, "wexel::WXLInspectBugVC");
    scroll(*window);
    navigationOf(*window).popViewController();
    waitForScreen(*window, "wexel::WXLReportComposeViewController");
    timer.start();
    compose->submitButtonPressed();
    waitUntil([&] { return !window || !window->isVisible(); });
    print("submit_ms", static_cast<double>(timer.nsecsElapsed()) / nanosecondsInAMillisecond);
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
    runThroughAllScreens();
    return 0;
}

#include "Presentation/Helpers/HitTestHook.h"

#include <cstdlib>
#include <utility>

#include <QApplication>
#include <QPointerEvent>
#include <QWindow>

#include "Business/WXLUserEventReporter.h"
#include "Platform/Clock.h"
#include "Presentation/Helpers/HitView.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/PointerEvents.h"
#include "Presentation/Helpers/TopController.h"

namespace wexel {

namespace {

constexpr qint64 samePressMilliseconds = 10;

/// Only ever compared with itself, and many times cheaper than the local time.
class UtcClock final : public Clock
{
public:
    QDateTime now() const override { return QDateTime::currentDateTimeUtc(); }
};

// The counterpart of the system's keyboard. Where a host has its panel within a window, that window counts anyway.
bool isKeyboard(const QWindow &window)
{
    return window.inherits("QtVirtualKeyboard::InputView");
}

bool canBeKey(const QWindow &window)
{
    const QWindow *top = &window;
    while (top->parent() != nullptr)
        top = top->parent();
    return top->type() == Qt::Popup
        || (top->type() != Qt::ToolTip && top->type() != Qt::SplashScreen
            && !top->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
}

// Once the flow has closed, its window stays the active one until the platform has chosen the next.
bool isFlowActive()
{
    const QWindow *flow = markedWindowBelow(QGuiApplication::focusWindow(), displayWindowProperty);
    return flow != nullptr && flow->isVisible();
}

bool isRecorded(const QWindow &window)
{
    return !isFlowActive() && markedWindowBelow(&window, displayWindowProperty) == nullptr
        && markedWindowBelow(&window, clickableWindowProperty) == nullptr
        && (canBeKey(window) || isKeyboard(window));
}

// Where the platform sends all presses to an open popup, those elsewhere lie outside of it; where it does not, they
// come to the windows below, which will not handle them. A press that is to have its effect is sent once more.
bool isInside(const QWindow &window, const QPointF &position)
{
    const bool hasWidgets = qobject_cast<QApplication *>(QCoreApplication::instance()) != nullptr;
    const bool closesPopup = hasWidgets && QApplication::activePopupWidget() != nullptr && !isPopup(&window);
    return !closesPopup && QRectF(QPointF(), QSizeF(window.size())).contains(position);
}

void install()
{
    auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    if (application == nullptr)
        return;
    static const auto &clock = *new UtcClock; // outlives every hook
    application->installEventFilter(new HitTestHook(
        clock, []() -> WXLUserEventReporter & { return WXLUserEventReporter::shared(); }, application));
}

// Whoever loads the library later may do so on another thread.
void installOnMainThread()
{
    QMetaObject::invokeMethod(QCoreApplication::instance(), install);
}
Q_COREAPP_STARTUP_FUNCTION(installOnMainThread)

} // namespace

HitTestHook::HitTestHook(const Clock &clock, Reporter reporter, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_reporter(std::move(reporter))
{
}

// Every event of every object of the main thread comes through here.
bool HitTestHook::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate: // another finger
    case QEvent::TabletPress:
        break;
    default:
        return false;
    }
    if (!watched->isWindowType() || !event->isPointerEvent() || isMadeOfAnother(*event))
        return false;
    for (const QEventPoint &point : static_cast<const QPointerEvent *>(event)->points()) {
        if (point.state() == QEventPoint::Pressed)
            wxl_hitTest(static_cast<QWindow &>(*watched), point.position());
    }
    return false;
}

// A scene within a widget gets its press from the widget's window, which was hit tested as a whole.
void HitTestHook::wxl_hitTest(QWindow &window, const QPointF &position)
{
    if (isOffscreen(&window) || !isRecorded(window) || !isInside(window, position))
        return;
    const QDateTime now = m_clock.now();
    const auto latest = std::exchange(m_latestHitTestDate, now);
    // In either direction: a clock that was set back must not keep taps from being recorded until it has caught up.
    if (latest && std::abs(latest->msecsTo(now)) <= samePressMilliseconds)
        return;
    const QObject *screen = isKeyboard(window) ? topController() : topControllerOfPressed(&window);
    m_reporter().reportViewTouched(hitView(window, position), screen);
}

} // namespace wexel

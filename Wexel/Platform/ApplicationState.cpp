#include "Platform/ApplicationState.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace wexel {

ApplicationPhase applicationPhase(Qt::ApplicationState state, bool anyWindowShows)
{
    if (!anyWindowShows || state == Qt::ApplicationSuspended || state == Qt::ApplicationHidden)
        return ApplicationPhase::Background;
    return state == Qt::ApplicationActive ? ApplicationPhase::Active : ApplicationPhase::Inactive;
}

std::vector<QString> notificationsFor(ApplicationPhase from, ApplicationPhase to)
{
    using Phase = ApplicationPhase;
    if (from == to)
        return {};
    std::vector<QString> names;
    if (from == Phase::Background)
        names.push_back(ApplicationWillEnterForegroundNotification);
    else if (from == Phase::Active)
        names.push_back(ApplicationWillResignActiveNotification);
    if (to == Phase::Background)
        names.push_back(ApplicationDidEnterBackgroundNotification);
    return names;
}

namespace {

bool anyWindowShows()
{
    const auto windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(), [](const QWindow *window) {
        return window->isVisible() && !window->windowStates().testFlag(Qt::WindowMinimized);
    });
}

} // namespace

ApplicationState::ApplicationState(NotificationCenter &center) : m_center(center)
{
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &ApplicationState::update);
    qGuiApp->installEventFilter(this);
    m_hasShownAnything = anyWindowShows();
}

void ApplicationState::watch()
{
    static bool watching = false;
    auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    if (!application || std::exchange(watching, true))
        return;
    (new ApplicationState(NotificationCenter::defaultCenter()))->setParent(application);
}

bool ApplicationState::eventFilter(QObject *watched, QEvent *event)
{
    const bool concerns = event->type() == QEvent::Show || event->type() == QEvent::Hide
        || event->type() == QEvent::WindowStateChange;
    // One look after the burst: a host that swaps one window for another never was in the background.
    if (concerns && watched->isWindowType() && !std::exchange(m_updatePending, true))
        QMetaObject::invokeMethod(this, &ApplicationState::update, Qt::QueuedConnection);
    return false;
}

void ApplicationState::update()
{
    m_updatePending = false;
    const bool shows = anyWindowShows();
    m_hasShownAnything = m_hasShownAnything || shows;
    if (!m_hasShownAnything)
        return;
    const auto phase = applicationPhase(QGuiApplication::applicationState(), shows);
    m_hasBeenActive = m_hasBeenActive || phase == ApplicationPhase::Active;
    if (phase == ApplicationPhase::Inactive && !m_hasBeenActive)
        return;
    for (const auto &name : notificationsFor(std::exchange(m_phase, phase), phase))
        m_center.post(name);
}

} // namespace wexel

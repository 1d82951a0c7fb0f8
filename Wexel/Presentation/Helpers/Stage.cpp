#include "Presentation/Helpers/Stage.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QGuiApplication>

#include "Presentation/Helpers/HostWindows.h"

namespace wexel {

Stage &Stage::shared()
{
    static QPointer<Stage> instance; // goes with the application object
    if (!instance)
        instance = new Stage(QCoreApplication::instance());
    return *instance;
}

Stage::Stage(QObject *application) : QObject(application)
{
    application->installEventFilter(this);
    follow();
}

QRect Stage::geometry() const
{
    return m_window ? QRect(m_window->mapToGlobal(QPoint()), m_window->size()) : QRect();
}

bool Stage::isShown() const
{
    return m_window && m_window->isVisible() && !m_window->windowStates().testFlag(Qt::WindowMinimized);
}

QWindow *Stage::topWindow() const
{
    const QList<QWindow *> windows = windowsBackToFront();
    const auto modal = std::find_if(windows.rbegin(), windows.rend(), [this](const QWindow *window) {
        return !isOwn(window)
            && (window->modality() == Qt::ApplicationModal
                || (window->modality() == Qt::WindowModal && m_window
                    && m_window->isAncestorOf(window, QWindow::IncludeTransients)));
    });
    return modal != windows.rend() ? *modal : window();
}

// Every event of every object of the main thread comes through here.
bool Stage::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        if (watched == m_window)
            Q_EMIT changed();
        break;
    case QEvent::Hide:
        if (watched == m_window)
            Q_EMIT changed(); // at once: nothing of ours may outlast it
        [[fallthrough]];
    case QEvent::Show:
    case QEvent::FocusIn:
        if (watched->isWindowType() && !isOwn(static_cast<QWindow *>(watched)))
            followLater();
        break;
    default:
        break;
    }
    return false;
}

// A window is not yet what it is about to be while it is told so.
void Stage::followLater()
{
    if (std::exchange(m_followPending, true))
        return;
    QMetaObject::invokeMethod(this, &Stage::follow, Qt::QueuedConnection);
}

void Stage::follow()
{
    m_followPending = false;
    // While another application is the active one, nothing tells which window the user means.
    const bool isKnown = m_window && m_window->isVisible() && QGuiApplication::focusWindow() == nullptr;
    if (!isKnown)
        m_window = hostMainWindow();
    Q_EMIT changed();
}

} // namespace wexel

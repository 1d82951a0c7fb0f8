#pragma once

#include <vector>

#include <QObject>

#include "Platform/NotificationCenter.h"

namespace wexel {

/// Where the application stands for its user.
enum class ApplicationPhase { Active, Inactive, Background };

/// Background when the platform says so, or, on a desktop, when every window is minimised or hidden.
[[nodiscard]] ApplicationPhase applicationPhase(Qt::ApplicationState state, bool anyWindowShows);

/// What is announced, in this order, when the application goes from one phase to another.
[[nodiscard]] std::vector<QString> notificationsFor(ApplicationPhase from, ApplicationPhase to);

/// Watches the application's state and the visibility of its windows and posts the notifications of
/// NotificationCenter on the main thread. An application counts as being in the foreground until its first window
/// has been shown, and as active until it is so: a desktop shows a window before it activates it. One without a user
/// interface always does. Main thread only.
class ApplicationState final : public QObject
{
public:
    explicit ApplicationState(NotificationCenter &center);
    /// Begins to watch, once per process, and feeds the default centre. Needs an application object.
    static void watch();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void update();

    NotificationCenter &m_center;
    ApplicationPhase m_phase = ApplicationPhase::Active;
    bool m_hasShownAnything = false;
    bool m_hasBeenActive = false;
    bool m_updatePending = false;
};

} // namespace wexel

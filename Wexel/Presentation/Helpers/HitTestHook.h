#pragma once

#include <functional>
#include <optional>

#include <QDateTime>
#include <QObject>

class QWindow;

namespace wexel {

class Clock;
class WXLUserEventReporter;

/// Sees the presses of mouse, finger and pen in every window of the host before the host does, and has recorded what
/// they land on. It changes and swallows nothing.
///
/// One installs itself for every application object that has windows, when the library is loaded or when the object is
/// made, whichever comes later. It goes with the application object. Main thread only.
///
/// What the platform calls the key window is here the one that the press makes the active one, as a desktop does whether
/// it tells of the activation before the press or after it:
/// - any window of the host that can become active counts, dialogs and windows embedded in others among them;
/// - popups (menus, lists) are part of the window that they were opened from; a press beside an open one, which only
///   closes it, is no tap;
/// - a window that takes no keyboard focus does not count, but Qt's virtual keyboard does;
/// - while the reporting flow's window is the active one, and in the library's own windows, nothing is recorded.
class HitTestHook final : public QObject
{
public:
    /// Asked at the first tap, not before: by then the host has given itself the name that its store goes by.
    using Reporter = std::function<WXLUserEventReporter &()>;

    /// \param clock outlives the hook
    HitTestHook(const Clock &clock, Reporter reporter, QObject *parent = nullptr);

    /// One press, which may come as several events: within 10 ms of the one before, it is taken for the same.
    /// \param position in the window's coordinates
    void wxl_hitTest(QWindow &window, const QPointF &position);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const Clock &m_clock;
    const Reporter m_reporter;
    std::optional<QDateTime> m_latestHitTestDate;
};

} // namespace wexel

#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWindow>

namespace wexel {

/// The rectangle that the application occupies: the client area of the host's main window. The library's windows lie
/// over it and follow it. Main thread only.
class Stage final : public QObject
{
    Q_OBJECT

public:
    /// Follows the host's windows from the first call on, for the life of the application object.
    static Stage &shared();

    /// The host's main window; null while it shows none.
    [[nodiscard]] QWindow *window() const { return m_window; }
    /// Looks at the host's windows now, and not once it has got to its event loop.
    void update() { follow(); }
    /// In global coordinates; empty without a window.
    [[nodiscard]] QRect geometry() const;
    /// False without a window, and while it is minimised.
    [[nodiscard]] bool isShown() const;
    /// The window that the library's windows are opened from, so that they are above it: a modal dialog of the host's
    /// while one is open, else the main window.
    [[nodiscard]] QWindow *topWindow() const;

Q_SIGNALS:
    /// The window, its place, its size or what lies over it may have changed.
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit Stage(QObject *application);
    void followLater();
    void follow();

    QPointer<QWindow> m_window;
    bool m_followPending = false;
};

} // namespace wexel

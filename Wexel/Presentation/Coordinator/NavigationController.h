#pragma once

#include <QList>
#include <QQuickItem>

namespace wexel {

/// A stack of screens, each as large as the controller; the last is the one to be seen, and has the keyboard. Its drawing
/// animates: a new screen comes in from the side, and goes out to it. Main thread only.
class NavigationController : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit NavigationController(QQuickItem *parent = nullptr);

    /// Takes the screen. Without an animation it is there at once.
    void pushViewController(QQuickItem *screen, bool animated);
    /// Back to the screen below, if there is one; the last one goes for good.
    void popViewController();
    /// Shows a popup over the screens, which are out of reach from then on.
    void presentViewController(QQuickItem *popup);
    [[nodiscard]] QQuickItem *topViewController() const
    {
        return m_screens.isEmpty() ? nullptr : m_screens.last();
    }

    /// The animation, for the drawing: it has ended.
    Q_INVOKABLE void transitionEnded();

Q_SIGNALS:
    void pushed(QQuickItem *screen, QQuickItem *below);
    void popped(QQuickItem *screen, QQuickItem *below);
    void appeared(QQuickItem *screen); ///< has come to its place

private:
    QList<QQuickItem *> m_screens;
    QList<QQuickItem *> m_leaving;
};

} // namespace wexel

#include "Presentation/Coordinator/NavigationController.h"

#include <utility>

namespace wexel {

NavigationController::NavigationController(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

void NavigationController::pushViewController(QQuickItem *screen, bool animated)
{
    QQuickItem *below = topViewController();
    m_screens.append(screen);
    if (animated && below != nullptr) {
        setEnabled(false); // nothing is tapped while it moves
        Q_EMIT pushed(screen, below);
    } else {
        transitionEnded();
    }
}

void NavigationController::popViewController()
{
    if (m_screens.size() < 2)
        return;
    QQuickItem *screen = m_screens.takeLast();
    m_leaving.append(screen);
    QQuickItem *below = m_screens.last();
    below->setVisible(true);
    setEnabled(false);
    Q_EMIT popped(screen, below);
}

void NavigationController::presentViewController(QQuickItem *popup)
{
    m_screens.last()->setEnabled(false);
    popup->forceActiveFocus();
}

void NavigationController::transitionEnded()
{
    setEnabled(true);
    for (QQuickItem *screen : std::exchange(m_leaving, {}))
        screen->deleteLater();
    QQuickItem *top = m_screens.last();
    for (QQuickItem *screen : std::as_const(m_screens))
        screen->setVisible(screen == top);
    top->forceActiveFocus();
    Q_EMIT appeared(top);
}

} // namespace wexel

#include "Presentation/Helpers/WidgetScreens.h"

#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>

namespace wexel {

namespace {

constexpr int maximumSearchDepth = 8;

QWidget *lastVisibleWidget(const QSplitter *splitter)
{
    for (int i = splitter->count() - 1; i >= 0; --i) {
        if (splitter->widget(i)->isVisible())
            return splitter->widget(i);
    }
    return nullptr;
}

bool isContainer(const QWidget *widget)
{
    return qobject_cast<const QStackedWidget *>(widget) != nullptr
        || qobject_cast<const QTabWidget *>(widget) != nullptr
        || qobject_cast<const QSplitter *>(widget) != nullptr;
}

QWidget *currentScreen(const QWidget *container)
{
    if (const auto *stack = qobject_cast<const QStackedWidget *>(container))
        return stack->currentWidget();
    if (const auto *tabs = qobject_cast<const QTabWidget *>(container))
        return tabs->currentWidget();
    return lastVisibleWidget(qobject_cast<const QSplitter *>(container));
}

bool fillsParent(const QWidget *widget)
{
    const QSize parent = widget->parentWidget()->size();
    return widget->isVisible() && !widget->isWindow()
        && 2LL * widget->width() * widget->height() >= 1LL * parent.width() * parent.height();
}

QWidget *containerBelow(const QWidget *widget, int depth = 0)
{
    const auto children = widget->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children) {
        if (!fillsParent(child))
            continue;
        if (isContainer(child))
            return child;
        QWidget *found = depth < maximumSearchDepth ? containerBelow(child, depth + 1) : nullptr;
        if (found != nullptr)
            return found;
    }
    return nullptr;
}

} // namespace

QWidget *screenInside(QWidget *controller)
{
    return isContainer(controller) ? currentScreen(controller) : containerBelow(controller);
}

} // namespace wexel

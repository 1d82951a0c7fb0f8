#include "Presentation/Helpers/ClickableWindowAccessible.h"

#include <QGuiApplication>

#include "Presentation/Helpers/WXLClickableWindow.h"

namespace wexel {

ClickableWindowAccessible::ClickableWindowAccessible(WXLClickableWindow *window) : QAccessibleObject(window)
{
}

WXLClickableWindow *ClickableWindowAccessible::view() const
{
    return static_cast<WXLClickableWindow *>(object());
}

QAccessibleInterface *ClickableWindowAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(QCoreApplication::instance());
}

QAccessible::Role ClickableWindowAccessible::role() const
{
    return view()->canBePressed() ? QAccessible::Button : QAccessible::AlertMessage;
}

QAccessible::State ClickableWindowAccessible::state() const
{
    QAccessible::State state;
    state.invisible = !view()->isVisible();
    return state;
}

QString ClickableWindowAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name ? view()->accessibleName() : QString();
}

QRect ClickableWindowAccessible::rect() const
{
    return view()->geometry();
}

QWindow *ClickableWindowAccessible::window() const
{
    return view();
}

void *ClickableWindowAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface && view()->canBePressed())
        return static_cast<QAccessibleActionInterface *>(this);
    return nullptr;
}

QStringList ClickableWindowAccessible::actionNames() const
{
    return {pressAction()};
}

void ClickableWindowAccessible::doAction(const QString &name)
{
    if (name == pressAction())
        view()->press();
}

} // namespace wexel

#include "Presentation/Helpers/TopController.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include "Platform/HostClassName.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/QuickScreens.h"
#include "Presentation/Helpers/WidgetScreens.h"

namespace wexel {

namespace {

constexpr int maximumDepth = 32; // of screens within screens

QObject *nextController(QObject *controller)
{
    if (auto *widget = qobject_cast<QWidget *>(controller))
        return screenInside(widget);
    return quickScreenInside(controller);
}

QObject *rootOf(QWindow *window)
{
    QWidget *widget = window != nullptr ? widgetOf(window) : nullptr;
    return widget != nullptr ? static_cast<QObject *>(widget) : window;
}

} // namespace

QObject *topController(QObject *root)
{
    QObject *controller = root;
    for (int depth = 0; controller != nullptr && depth < maximumDepth; ++depth) {
        QObject *next = nextController(controller);
        if (next == nullptr)
            break;
        controller = next;
    }
    return controller;
}

QObject *topController()
{
    const bool hasWidgets = qobject_cast<QApplication *>(QCoreApplication::instance()) != nullptr;
    if (QWidget *modal = hasWidgets ? QApplication::activeModalWidget() : nullptr)
        return topController(static_cast<QObject *>(modal));
    return topController(rootOf(hostKeyWindow()));
}

QObject *topControllerOfPressed(QWindow *pressed)
{
    QWindow *window = windowBelow(pressed);
    return window != nullptr ? topController(rootOf(window)) : topController();
}

QString topControllerName()
{
    const QObject *controller = topController();
    return controller != nullptr ? hostClassName(controller->metaObject()) : QString();
}

} // namespace wexel

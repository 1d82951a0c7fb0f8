#include "Presentation/Helpers/HostWindows.h"

#include <algorithm>
#include <tuple>

#include <QApplication>
#include <QGuiApplication>
#include <QQuickRenderControl>
#include <QQuickWindow>
#include <QWidget>
#include <QWindow>

namespace wexel {

namespace {

constexpr int maximumDepth = 16; // of windows opened from windows

int transientDepth(const QWindow *window)
{
    int depth = 0;
    for (const QWindow *parent = window->transientParent(); parent != nullptr && depth < maximumDepth;
         parent = parent->transientParent())
        ++depth;
    return depth;
}

// A dialog lies over the main windows even where nobody told which one it is for.
int layer(const QWindow *window)
{
    const bool isMain = window->type() == Qt::Window && window->transientParent() == nullptr;
    return isPopup(window) ? 2 : (isMain ? 0 : 1);
}

const QWindow *mainWindowOf(const QWindow *window)
{
    while (window != nullptr && window->transientParent() != nullptr)
        window = window->transientParent();
    return window;
}

} // namespace

bool isOwn(const QWindow *window)
{
    return isMarked(window, clickableWindowProperty) || isMarked(window, displayWindowProperty);
}

bool isMarked(const QWindow *window, const char *property)
{
    if (window->property(property).toBool())
        return true;
    const QWidget *widget = widgetOf(window);
    return widget != nullptr && widget->property(property).toBool();
}

const QWindow *markedWindowBelow(const QWindow *window, const char *property)
{
    for (int depth = 0; window != nullptr && depth < maximumDepth; ++depth) {
        if (isMarked(window, property))
            return window;
        window = window->parent(QWindow::IncludeTransients);
    }
    return nullptr;
}

QWidget *widgetOf(const QWindow *window)
{
    // Without a native window there is nothing to find, and asking for its number would make one.
    const bool hasWidgets = qobject_cast<QApplication *>(QCoreApplication::instance()) != nullptr;
    return hasWidgets && window->handle() != nullptr ? QWidget::find(window->winId()) : nullptr;
}

bool isOffscreen(QWindow *window)
{
    auto *scene = qobject_cast<QQuickWindow *>(window);
    return scene != nullptr && QQuickRenderControl::renderWindowFor(scene) != nullptr;
}

bool isPopup(const QWindow *window)
{
    return window->type() == Qt::Popup || window->type() == Qt::ToolTip;
}

QWindow *windowBelow(QWindow *window)
{
    while (window != nullptr && (window->parent() != nullptr || isPopup(window)))
        window = window->parent(QWindow::IncludeTransients);
    return window;
}

QList<QWindow *> windowsBackToFront()
{
    QList<QWindow *> windows;
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr)
        windows = QGuiApplication::topLevelWindows();
    windows.removeIf([](QWindow *window) {
        return !window->isVisible() || window->type() == Qt::Desktop || isOffscreen(window)
            || isMarked(window, clickableWindowProperty);
    });
    const QWindow *active = QGuiApplication::focusWindow();
    const QWindow *activeMain = mainWindowOf(active);
    const auto rank = [active, activeMain](const QWindow *window) {
        return std::tuple(layer(window), mainWindowOf(window) == activeMain, transientDepth(window),
                          window == active);
    };
    std::stable_sort(windows.begin(), windows.end(),
                     [&rank](const QWindow *a, const QWindow *b) { return rank(a) < rank(b); });
    return windows;
}

QWindow *hostMainWindow()
{
    QWindow *main = nullptr;
    const QWindow *activeMain = mainWindowOf(QGuiApplication::focusWindow());
    for (QWindow *window : windowsBackToFront()) {
        const bool isDialog = layer(window) > 0; // also one that nobody said whose it is
        if (isOwn(window) || isPopup(window) || window->transientParent() != nullptr || (main && isDialog))
            continue;
        if (main == nullptr || window == activeMain)
            main = window;
    }
    return main;
}

QWindow *hostKeyWindow()
{
    QWindow *window = QGuiApplication::focusWindow();
    while (window != nullptr && (isPopup(window) || isOwn(window)))
        window = window->transientParent();
    return window != nullptr && !isOwn(window) ? window : hostMainWindow();
}

} // namespace wexel

#pragma once

#include <QList>
#include <QObject>
#include <QRect>

class QQuickItem;
class QQuickWindow;
class QWidget;
class QWindow;

namespace wexel {

/// Names of the properties that mark the library's own windows: set to true on a QWindow (or on the QWidget
/// of one). A clickable window (button, banner) passes what misses its content through to the application;
/// the display window carries the reporting flow.
inline constexpr char clickableWindowProperty[] = "WXLClickableWindow";
inline constexpr char displayWindowProperty[] = "WXLDisplayWindow";

/// True when the window, or the widget that it belongs to, carries the property.
[[nodiscard]] bool isMarked(const QWindow *window, const char *property);

/// True for the library's own windows.
[[nodiscard]] bool isOwn(const QWindow *window);

/// The window itself, or the one that it is embedded in or was opened from, that carries the property; null when none
/// does.
[[nodiscard]] const QWindow *markedWindowBelow(const QWindow *window, const char *property);

/// The widget whose native window this is; null for a window that is not one of Qt Widgets.
[[nodiscard]] QWidget *widgetOf(const QWindow *window);

/// The application's visible top-level windows, back to front: main windows, then what is transient for them
/// (dialogs, tool windows), then popups; among equals the active one last. Clickable windows are not among
/// them, the display window is.
[[nodiscard]] QList<QWindow *> windowsBackToFront();

/// The window that the stage lies over: the main window that the active window belongs to, else the first
/// visible one. A dialog only where there is no other window. Null when the host shows none. Never a window of the library's.
[[nodiscard]] QWindow *hostMainWindow();

/// The host's window that has the keyboard, a dialog for example; else its main window. Null as above.
[[nodiscard]] QWindow *hostKeyWindow();

/// True for a scene that is drawn into a widget: it gets no events of its own and shows as part of the widget.
[[nodiscard]] bool isOffscreen(QWindow *window);

/// True for menus, lists and tool tips, which close by themselves.
[[nodiscard]] bool isPopup(const QWindow *window);

/// The window that an embedded one lies in, or that a popup was opened from, and so on; the window itself when it is
/// neither. Null for a popup that nobody said it of.
[[nodiscard]] QWindow *windowBelow(QWindow *window);

// All of these: main thread only.

} // namespace wexel

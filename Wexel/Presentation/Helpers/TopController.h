#pragma once

#include <QObject>
#include <QString>

class QWindow;

namespace wexel {

/// The object that is really on screen below a window, view or screen of the host.
///
/// Qt Quick: the current item of a StackView, SwipeView or StackLayout, the last item of a SplitView, a
/// Loader's item, and before all an open Popup, Dialog or Drawer. Qt Widgets: the current page of a
/// QStackedWidget or QTabWidget, the last visible part of a QSplitter. The walk enters what fills at least
/// half of its parent, and ends at the screen that holds no such container; where a window holds none at all,
/// that is the window itself. Null for null. Main thread only.
[[nodiscard]] QObject *topController(QObject *root);

/// The same from the host's active modal widget, else its key window. Null when the host shows no window.
[[nodiscard]] QObject *topController();

/// The same from the window that a press landed in, which that press makes the key one. A popup window belongs to the
/// window that it was opened from.
[[nodiscard]] QObject *topControllerOfPressed(QWindow *window);

/// The class of `topController()` as the host's developer knows it; empty when there is none.
[[nodiscard]] QString topControllerName();

} // namespace wexel

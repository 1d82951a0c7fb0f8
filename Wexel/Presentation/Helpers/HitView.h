#pragma once

#include <QPointF>

class QObject;
class QWindow;

namespace wexel {

/// What a press at a position in a window lands on, by the object that a developer of the host would name.
///
/// Qt Quick: the topmost visible and enabled item there that takes presses, as Qt delivers them. Where that is only a
/// container (a page, a list, a dialog), the topmost item drawn there. Then
/// - a part that a control of Qt's is made of stands for the control: the text and the background of a button for the
///   Button, the field of a SpinBox for the SpinBox; the content of a popup for the popup;
/// - what lies in a control or in a component of the host (a CartLine.qml, a type of its own in C++) stands for the
///   nearest one, up to the container. Whatever fills half of the window is a screen, not a component;
/// - where there is none, it is the item itself.
///
/// Qt Widgets: the child widget there, or the nearest enabled one around it; a part that Qt made stands for the widget it
/// belongs to: the viewport for the QTreeView, the field and the list for the QComboBox. A scene or a window within a
/// widget is entered.
///
/// The window, or the widget that it is of, where there is nothing else. Main thread only.
[[nodiscard]] const QObject &hitView(QWindow &window, const QPointF &position);

} // namespace wexel

#pragma once

class QPoint;
class QWidget;

namespace wexel {

/// The widget that gets a press at a position in a window's widget, see `hitView`.
[[nodiscard]] QWidget &hitWidget(QWidget &root, const QPoint &position);

/// The widget that the host made: itself, or the one that it is a part of.
[[nodiscard]] const QWidget &recognisedWidget(const QWidget &widget);

} // namespace wexel

#pragma once

class QWidget;

namespace wexel {

/// One step of `topController` in Qt Widgets: the page that a container, or the container that fills a window
/// or a page, shows; null when there is none.
[[nodiscard]] QWidget *screenInside(QWidget *controller);

} // namespace wexel

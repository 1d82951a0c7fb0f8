#pragma once

class QObject;

namespace wexel {

/// One step of `topController` in Qt Quick: the screen that a window, a container, a popup or a screen shows;
/// null when there is none. Knows the types of Qt Quick Controls by their names and properties: their classes
/// are not public.
[[nodiscard]] QObject *quickScreenInside(QObject *controller);

} // namespace wexel

#pragma once

class QObject;
class QPointF;
class QQuickWindow;

namespace wexel {

/// The item, or the popup, of a scene that a press lands on, see `hitView`; null where there is none. Knows the types of
/// Qt Quick by their names: their classes are not public.
[[nodiscard]] const QObject *hitItem(const QQuickWindow &scene, const QPointF &position);

} // namespace wexel

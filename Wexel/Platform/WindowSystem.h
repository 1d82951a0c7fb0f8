#pragma once

#include <QRegion>

class QWindow;

namespace wexel {

/// Lets presses reach the window only inside the region, in its own coordinates; all others go to what lies below. What
/// is seen of the window stays as it is. Asked again after the window got a new native one. Main thread only.
void setInputRegion(QWindow &window, const QRegion &region);

/// True when windows with transparent pixels are blended with what lies below them. Without a compositing manager those
/// pixels are black, so that a window has to be cut out instead. May change at any time. Main thread only.
[[nodiscard]] bool isComposited();

} // namespace wexel

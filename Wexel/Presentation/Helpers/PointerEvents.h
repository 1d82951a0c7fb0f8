#pragma once

#include <QMouseEvent>

namespace wexel {

/// True for a mouse event that Qt made of a touch or a pen that nobody took: the event that it was made of has come
/// already.
[[nodiscard]] inline bool isMadeOfAnother(const QEvent &event)
{
    if (!event.isSinglePointEvent())
        return false;
    const auto *mouse = dynamic_cast<const QMouseEvent *>(&event);
    return mouse != nullptr
        && (mouse->source() == Qt::MouseEventSynthesizedByQt
            || mouse->source() == Qt::MouseEventSynthesizedByApplication);
}

} // namespace wexel

#pragma once

#include <QMarginsF>
#include <QWindow>

namespace wexel {

/// The parts of a window, in points, that the system's own bars or the screen's rounded corners cover: none on a desktop,
/// and none where Qt does not tell (before 6.9).
[[nodiscard]] inline QMarginsF safeAreaMargins([[maybe_unused]] const QWindow *window)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 9, 0)
    if (window != nullptr)
        return window->safeAreaMargins();
#endif
    return {};
}

} // namespace wexel

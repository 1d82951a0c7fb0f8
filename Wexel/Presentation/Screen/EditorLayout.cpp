#include "Presentation/Screen/EditorLayout.h"

#include <algorithm>

namespace wexel {

QRectF EditorLayout::imageFrame() const
{
    constexpr double part = 0.902; // of the height that is there
    constexpr double gapBelow = 0.052;
    constexpr double sideMargin = 16;
    const double available
        = std::max(0.0, screen.height() - navigationBarBottom - toolbarHeight - safeBottom);
    const double widest = std::max(0.0, screen.width() - 2 * sideMargin);
    const double height = std::min(part * available, widest * ratio);
    const double width = height / ratio;
    const double bottom = screen.height() - safeBottom - toolbarHeight - gapBelow * available
        - (part * available - height) / 2;
    return {(screen.width() - width) / 2, bottom - height, width, height};
}

} // namespace wexel

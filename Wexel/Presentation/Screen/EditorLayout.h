#pragma once

#include <QRectF>

namespace wexel {

/// Where the parts of the screenshot editor lie, in points.
struct EditorLayout {
    QSizeF screen;
    double navigationBarBottom = 0;
    double toolbarHeight = 0;
    double safeBottom = 0; ///< covered by the system
    double ratio = 1; ///< height to width of the stage when the editor was opened

    /// The screenshot, centred, as high as its place between bar and toolbar, of which some is left empty; smaller only
    /// where it would be wider than the screen.
    [[nodiscard]] QRectF imageFrame() const;
};

} // namespace wexel

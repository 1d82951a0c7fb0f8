#pragma once

#include <QColor>
#include <QImage>
#include <QSizeF>

namespace wexel {

/// The shadow of a rounded rectangle, to be drawn `blur * 2` up and left of it (plus the shadow's offset): a Gaussian of
/// the standard deviation `blur`, in points.
[[nodiscard]] QImage shadow(const QSizeF &size, qreal cornerRadius, qreal blur, const QColor &color,
                            qreal devicePixelRatio);

/// How far the shadow reaches beyond the rectangle.
[[nodiscard]] constexpr qreal shadowMargin(qreal blur)
{
    return 2 * blur;
}

} // namespace wexel

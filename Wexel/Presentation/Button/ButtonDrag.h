#pragma once

#include <QRectF>

namespace wexel {

/// Where the floating button may be: anywhere on the stage that is safe from the system's own bars.
struct ButtonLimits {
    QSizeF stage;
    double top = 0; ///< height of the upper part that is not safe, in points
    double bottom = 0;
};

/// While it is dragged the button is 3 % larger. The place moves by 3 % of the other side's length, so that a button that
/// is not square is not lifted about its centre.
[[nodiscard]] QRectF liftedFrame(const QRectF &frame);
[[nodiscard]] QRectF putDownFrame(const QRectF &frame);

/// The frame, within the limits. One that is too wide or too high lies at the left or the top.
[[nodiscard]] QRectF clampedFrame(const QRectF &frame, const ButtonLimits &limits);

} // namespace wexel

#pragma once

#include <vector>

#include <QImage>
#include <QPointF>
#include <QRect>

namespace wexel {

/// The diameter of one dab of blur, in pixels of the image.
inline constexpr int blurDiameterSize = 32;

/// Both coordinates of the point that stands for a touch outside of the image.
inline constexpr int outsideOfImageViewPoint = -1;
inline constexpr QPointF pointOutsideOfImageView(outsideOfImageViewPoint, outsideOfImageViewPoint);

[[nodiscard]] bool isPointOutsideOfImageView(const QPointF &point);

/// Where a finger that moves to `point` dabs, in this order and in pixels of the image: every 16 pixels on the way from
/// its last position, as long as it is more than that away along x or y, then at `point`. Only there if the last
/// position was outside of the image, nowhere if `point` is.
[[nodiscard]] std::vector<QPointF> dabsTo(const QPointF &previous, const QPointF &point);

/// Blurs a disc of the image around a point of it, in place, and returns the rectangle that may have changed, empty if
/// the point is so far outside that there is none. Coordinates are pixels; the device pixel ratio plays no part.
///
/// The rectangle is of 32 x 32 pixels around the point, its origin rounded to whole pixels; it is shifted inwards at the
/// left and the top border, and clipped at the right and the bottom one. What lies in it is blurred by a Gaussian with a
/// standard deviation of 1.7 pixels, as if its border pixels went on outside of it, and drawn over the image within the
/// antialiased circle in its middle whose diameter is its height.
///
/// Reads and writes the rectangle only and allocates nothing, provided that the image is premultiplied ARGB32 and not
/// shared; else it is first converted or copied as a whole, once. Any thread, if no other uses the image.
QRect blurCircleInImageViewAtPoint(QImage &image, const QPointF &point);

} // namespace wexel

#pragma once

#include <QByteArray>
#include <QImage>

namespace wexel {

/// The image as JPEG at quality 0.7, the form in which every picture travels, on white where it is transparent. Empty
/// for a null image.
[[nodiscard]] QByteArray getImageData(const QImage &image);

} // namespace wexel

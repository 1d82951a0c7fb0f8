#pragma once

#include <optional>

#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

namespace wexel {

/// A picture of the library's own, by its name in Resources/Icons, drawn for a screen of so many pixels a point: as
/// large as fits `points`, centred, the rest clear. With a tint only its shape counts, and is filled with that colour.
/// A null image and a line in the log when there is no such picture. May be called on any thread.
[[nodiscard]] QImage artwork(const QString &name, QSize points, qreal devicePixelRatio,
                             const std::optional<QColor> &tint = {});

} // namespace wexel

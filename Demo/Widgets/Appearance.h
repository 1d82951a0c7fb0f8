#pragma once

#include <QColor>
#include <QIcon>

class QApplication;

/// Colours of text, as in the style sheet.
namespace Ink {
inline constexpr QColor text{0x26, 0x2D, 0x33};
inline constexpr QColor soft{0x6A, 0x74, 0x7C};
inline constexpr QColor accent{0x1F, 0x6A, 0x86};
inline constexpr QColor code{0xA6, 0x4B, 0x2A};
} // namespace Ink

/// Gives the whole application the look of Fieldnotes, whatever the desktop's theme is.
void applyAppearance(QApplication &application);

/// The icon `Icons/NAME.svg`.
[[nodiscard]] QIcon namedIcon(const QString &name);

#pragma once

#include <QColor>
#include <QString>

namespace wexel {

/// The colour of a text such as "#1144f1". The first character is always skipped; the hex digits that follow, up to
/// the first other character, make a 32-bit number (at most 0xFFFFFFFF) whose low 24 bits are red, green and blue.
/// Malformed text never fails: no digits give black. Alpha is always 1.
[[nodiscard]] QColor colorWithHexValue(const QString &text);

} // namespace wexel

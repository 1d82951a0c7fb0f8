#pragma once

#include "Helpers/HexColor.h"

namespace wexel {

/// Colours from the texts of a branding.
class WXLColorConverter
{
public:
    /// See `colorWithHexValue`: the first character is skipped whatever it is.
    [[nodiscard]] static QColor colorFromHex(const QString &text) { return colorWithHexValue(text); }
};

} // namespace wexel

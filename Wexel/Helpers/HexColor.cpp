#include "Helpers/HexColor.h"

#include <algorithm>
#include <cctype>
#include <limits>

namespace wexel {

QColor colorWithHexValue(const QString &text)
{
    const auto isHexDigit = [](QChar c) { return c.unicode() < 128 && std::isxdigit(c.unicode()) != 0; };
    const auto begin = text.begin() + std::min<qsizetype>(1, text.size());
    const auto end = std::find_if_not(begin, text.end(), isHexDigit);
    const QString digits(begin, end - begin);
    bool fits = false;
    quint32 value = digits.toUInt(&fits, 16);
    if (!fits && !digits.isEmpty())
        value = std::numeric_limits<quint32>::max();
    return QColor::fromRgb(value | 0xFF000000U);
}

} // namespace wexel

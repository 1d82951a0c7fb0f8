#pragma once

#include <QString>

#include "Business/ReportKeys.h"

namespace wexel {

/// How the black box writes a measured number.
inline constexpr const char *DECIMAL_FORMAT = "%.3f";

[[nodiscard]] inline QString decimalText(double number)
{
    return QString::asprintf(DECIMAL_FORMAT, number);
}

[[nodiscard]] inline double megabytes(quint64 bytes)
{
    return static_cast<double>(bytes) / NUMBER_OF_BYTES_IN_MB;
}

/// A double as the shortest text that reads back to 16 digits.
[[nodiscard]] inline QString numberText(double number)
{
    constexpr int digits = 16;
    return QString::number(number, 'g', digits);
}

/// A single-precision number as text.
[[nodiscard]] inline QString numberText(float number)
{
    constexpr int digits = 7;
    return QString::number(static_cast<double>(number), 'g', digits);
}

} // namespace wexel

#pragma once

#include <optional>

#include <QString>

namespace wexel {

/// Writes one line to the logging category "wexel". Thread-safe.
void log(const QString &line);

/// The text of a value in a log line; "(null)" where there is none.
[[nodiscard]] QString logged(const std::optional<QString> &text);

} // namespace wexel

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace wexel::receiver {

/// Writes one line to the standard error output: time=... event=EVENT key=value ... Values that are not plain words
/// are quoted, with everything but printable ASCII escaped, and cut at 300 bytes; so text from clients can neither
/// forge a line nor reach a terminal; empty ones are left out. Any thread may call it; lines never mix.
void logEvent(std::string_view event,
              std::initializer_list<std::pair<std::string_view, std::string>> fields = {});

/// \a text with every byte but printable ASCII, and the quote and the backslash, escaped.
std::string escaped(std::string_view text);

} // namespace wexel::receiver

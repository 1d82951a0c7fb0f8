#pragma once

#include <string>

namespace wexel::receiver {

/// The branding in the JSON file at \a path, as compact JSON. Throws UsageError, which names the file and the key, unless
/// it is an object with the texts text_color, background, placeholder_color, highlighted_text_color, slogan and logo_url.
std::string readWhiteLabeling(const std::string &path);

} // namespace wexel::receiver

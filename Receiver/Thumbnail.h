#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wexel::receiver {

/// The picture made small, no higher than 160 and no wider than 640 pixels, as JPEG; nothing if \a jpeg can't be read or
/// is too costly: more than 33 million pixels, progressive with more than 8 million, or more than 20 scans. One that is damaged gives what can be seen of it. Every thread may call it.
std::optional<std::string> jpegThumbnail(std::string_view jpeg);

} // namespace wexel::receiver

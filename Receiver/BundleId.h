#pragma once

#include <string>

namespace wexel::receiver {

/// What is wrong with \a bundleId as an application's identifier, or an empty text if nothing is. It must be UTF-8 of 1
/// to 255 bytes, made of ASCII letters and digits, blanks, . _ - and letters beyond ASCII, and must not begin with a dot.
std::string bundleIdFault(const std::string &bundleId);

} // namespace wexel::receiver

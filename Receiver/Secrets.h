#pragma once

#include <string>
#include <string_view>

namespace wexel::receiver {

/// 32 hexadecimal digits (128 bits) from the operating system's random source.
std::string randomId();

/// 64 hexadecimal digits (256 bits) from there: for secrets that are kept by their SHA-256.
std::string randomSecret();

/// SHA-256 of \a text in 64 hexadecimal digits.
std::string sha256(std::string_view text);

/// Compares without telling by its duration where two texts of one length differ.
bool equalInConstantTime(std::string_view left, std::string_view right);

} // namespace wexel::receiver

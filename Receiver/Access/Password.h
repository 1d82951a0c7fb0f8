#pragma once

#include <string>
#include <string_view>

namespace wexel::receiver {

/// The fewest bytes that a password may have.
inline constexpr std::size_t minimumPasswordLength = 10;

/// What to store of \a password: a salted hash that is slow to compute (Argon2id), with its salt and cost in it. Takes some
/// 100 ms and 64 MiB. Throws std::runtime_error if the memory is not there. Any thread may call these functions.
std::string passwordHash(std::string_view password);

/// Whether \a hash is that of \a password; as slow as making it.
bool isPassword(const std::string &hash, std::string_view password);

/// 20 letters and digits, none of which is easily taken for another.
std::string randomPassword();

} // namespace wexel::receiver

#pragma once

#include <cstddef>

namespace wexel::receiver {

constexpr std::size_t blockSize = 64 * 1024; ///< bytes that are read or written at once

} // namespace wexel::receiver

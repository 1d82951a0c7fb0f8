#pragma once

#include <Poco/JSON/Object.h>

#include <cstdint>

namespace wexel::receiver {

struct Retention;

constexpr std::int64_t longestRetention = 36500; ///< days
constexpr std::int64_t largestRetention = std::int64_t(1)
    << 53; ///< bytes; the most that JavaScript counts exactly

/// Reads "max_age_days" and "max_bytes", each null or a number within its bounds. Throws an HttpError (400) that names what
/// is wrong.
Retention readRetention(const Poco::JSON::Object &object);

} // namespace wexel::receiver

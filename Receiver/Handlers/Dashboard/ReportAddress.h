#pragma once

#include "Http/HttpError.h"

#include <charconv>
#include <cstdint>
#include <string>

namespace wexel::receiver {

[[noreturn]] inline void failNoReport()
{
    throw HttpError(Status::HTTP_NOT_FOUND, "There is no such report");
}

/// The report's id in an address. What is none names no report: 404.
inline std::int64_t reportIdFrom(const std::string &segment)
{
    std::int64_t id = 0;
    const char *const last = segment.data() + segment.size();
    const auto [end, error] = std::from_chars(segment.data(), last, id);
    if (error != std::errc() || end != last || id < 1)
        failNoReport();
    return id;
}

} // namespace wexel::receiver

#pragma once

#include "Storage/DataFolder.h"

#include <cstdint>
#include <string>

namespace wexel::receiver {

struct ImportResult {
    std::int64_t reports = 0;
    std::int64_t known = 0; ///< those that were here before, or were removed here
};

/// Adds what an export or a backup holds to \a data, beside servers at work. A report comes whole or not at all; what came
/// before an error stays, and the next import does not add it again. Throws std::runtime_error with a text for the user.
ImportResult importFrom(const std::string &file, DataFolder &data);

} // namespace wexel::receiver

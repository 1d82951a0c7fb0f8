#pragma once

#include "Storage/DataFolder.h"
#include "Transfer/AccessRecords.h"
#include "Transfer/TarReader.h"

#include <cstdint>

namespace wexel::receiver {

struct ImportResult {
    std::int64_t reports = 0;
    std::int64_t known = 0; ///< those that were here before
    std::int64_t deleted = 0; ///< those that were deleted here, and are not taken again
    std::int64_t limited = 0; ///< applications of the file that have a retention here, perhaps by it
    RestoredAccess access;
};

/// Reads the beginning of \a tar, to be called before importFrom(). Throws std::runtime_error with a text for the user if it
/// is no export.
void readManifest(TarReader &tar);

/// Adds what an export or a backup holds behind its beginning to \a data, beside servers at work. A report comes whole or not
/// at all; what came before an error stays, \a result tells of it, and the next import does not add it again. Throws
/// std::runtime_error with a text for the user.
void importFrom(TarReader &tar, DataFolder &data, ImportResult &result);

} // namespace wexel::receiver

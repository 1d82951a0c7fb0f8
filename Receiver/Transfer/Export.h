#pragma once

#include "Storage/DataFolder.h"

#include <cstdint>
#include <string>

namespace wexel::receiver {

struct ExportResult {
    std::int64_t reports = 0;
    std::int64_t removed = 0; ///< while it was written, so they are not in it
    std::int64_t lostFiles = 0; ///< whose bytes are gone, of reports that are in it
};

enum class ExportScope {
    Reports, ///< applications, reports and their files
    Everything ///< passwords and clients too
};

/// Writes what \a data holds at this instant to \a file, or to the standard output if that is "-", beside servers at work.
/// Throws StorageError or std::runtime_error.
ExportResult exportTo(const std::string &file, DataFolder &data, ExportScope scope);

} // namespace wexel::receiver

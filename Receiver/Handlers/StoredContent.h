#pragma once

#include "Http/Answer.h"
#include "Storage/FileStore.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// The bytes of a file that the database knows. Throws an HttpError 500 if they are gone or cut short, and logs that.
FileContent openContent(const FileStore &files, const StoredFile &file);

/// The same, all at once. For files whose size was checked to be small.
std::string readContent(const FileStore &files, const StoredFile &file);

} // namespace wexel::receiver

#pragma once

#include "Platform/DeviceFacts.h"

namespace wexel {

/// See DeviceFacts::fileSystem. Thread-safe.
std::optional<FileSystemSize> fileSystemOf(const QString &path, Error &error);

} // namespace wexel

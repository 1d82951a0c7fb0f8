#pragma once

#include <filesystem>
#include <string>

namespace wexel::receiver {

/// Throws the StorageError for the system's error \a code.
[[noreturn]] void failStorage(const std::string &what, int code);

/// Makes \a folder (mode 0700) unless it is there; its parent must be.
void makeFolder(const std::filesystem::path &folder);

/// Returns once the entries of \a folder are safe from a power cut.
void syncFolder(const std::filesystem::path &folder);

} // namespace wexel::receiver

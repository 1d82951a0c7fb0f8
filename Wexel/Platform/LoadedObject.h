#pragma once

#include <QString>

namespace wexel {

/// The file that this code was loaded from, links resolved: the shared library, or the program that it is
/// linked into. Thread-safe.
[[nodiscard]] QString loadedObjectPath();

} // namespace wexel

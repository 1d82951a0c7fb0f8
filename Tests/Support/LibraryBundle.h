#pragma once

#include <QString>

namespace wexel {

/// Writes the backend's address into PREFIX/share/wexel/Info.plist, as whoever ships the library would.
void pointToBackend(const QString &prefix, const QString &url);

} // namespace wexel

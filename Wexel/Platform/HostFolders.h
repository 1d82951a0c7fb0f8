#pragma once

#include <QUrl>

namespace wexel::HostFolders {

/// The documents folder of the host application, below its own data folder (QStandardPaths::AppDataLocation), never
/// the one that all of a user's applications share. May not exist yet.
[[nodiscard]] QUrl documents();
/// The file of the host application's user defaults. May not exist yet.
[[nodiscard]] QString userDefaults();

} // namespace wexel::HostFolders

#pragma once

#include "Options.h"
#include "Storage/Database.h"

#include <optional>
#include <string>

namespace wexel::receiver {

/// Sets the administrator's password unless there is one: that of the file in \a options, or a random one, which is
/// returned, as it can be told only now. Throws UsageError for a file that holds no password.
std::optional<std::string> setFirstPassword(const Options &options, Database &database);

/// \a password, or UsageError if it is too short.
std::string checkedPassword(const std::string &password);

} // namespace wexel::receiver

#pragma once

#include "Options.h"
#include "Storage/Database.h"

#include <optional>
#include <string>

namespace wexel::receiver {

/// The password in the file that \a options name, or nothing if they name none. Throws UsageError for a file that holds no
/// password, at any start: whether it is the first is known only later.
std::optional<std::string> givenPassword(const Options &options);

/// Sets the administrator's password unless there is one: the \a given one, or a random one, which is returned, as it can
/// be told only now.
std::optional<std::string> setFirstPassword(const std::optional<std::string> &given, Database &database);

/// \a password, or UsageError if it is too short.
std::string checkedPassword(const std::string &password);

} // namespace wexel::receiver

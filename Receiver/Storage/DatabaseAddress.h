#pragma once

#include <string>

namespace wexel::receiver {

/// True if \a address is one of a PostgreSQL database.
bool isPostgreSqlAddress(const std::string &address);

/// What PostgreSQL's client library is told for \a address, postgresql://[user[:password]@][host][:port]/[name][?name=value&...].
/// What is left out comes from the library's environment variables and files. Throws UsageError.
std::string connectionOptions(const std::string &address);

/// \a address for people to read: its host and name, as far as it tells them, and no secret.
std::string databaseName(const std::string &address);

} // namespace wexel::receiver

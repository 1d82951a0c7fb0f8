#pragma once

#include "Storage/Database.h"

#include <optional>
#include <string>

namespace wexel::receiver {

/// The access tokens. They are kept (by their SHA-256 only) in the database, so a restart leaves running applications
/// signed in: an application asks for a token only when it starts. Every thread may use it. Throws StorageError.
class TokenStore
{
public:
    explicit TokenStore(Database &database) : m_database(database) { }

    /// A new token for \a client that is good for \a lifetime seconds from \a now (milliseconds since 1970). Forgets the
    /// tokens that have expired.
    std::string issue(const std::string &client, int lifetime, std::int64_t now);

    /// The client that \a token was issued to, or nothing if it is unknown or has expired by \a now.
    std::optional<std::string> clientOf(const std::string &token, std::int64_t now);

    void end(const std::string &token);

private:
    Database &m_database;
};

} // namespace wexel::receiver

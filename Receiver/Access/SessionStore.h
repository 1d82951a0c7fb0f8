#pragma once

#include "Storage/Database.h"

#include <optional>
#include <string>

namespace wexel::receiver {

/// A signed-in browser.
struct DashboardSession {
    std::string digest; ///< what the session is stored by; of no use to sign in
    std::string csrf; ///< what its changing requests must carry
};

/// The sessions of the dashboard. Of a session's token only the SHA-256 is kept, and the text against forged requests is
/// derived from the token, so that whoever reads the database can act in nobody's name. Times are milliseconds since 1970.
/// Every thread may use it. Throws StorageError.
class SessionStore
{
public:
    static constexpr std::int64_t longestIdle = std::int64_t(12) * 3600 * 1000;
    static constexpr std::int64_t longestLife = std::int64_t(7) * 24 * 3600 * 1000;

    explicit SessionStore(Database &database) : m_database(database) { }

    /// The token of a new session: 256 random bits. Forgets the sessions that have expired.
    std::string start(std::int64_t now);
    /// The session of \a token, or nothing if it is unknown or has expired by \a now.
    std::optional<DashboardSession> find(const std::string &token, std::int64_t now);
    void end(const std::string &digest);

    static DashboardSession describe(const std::string &token);

private:
    void noteUse(const std::string &digest, std::int64_t now);

    Database &m_database;
};

} // namespace wexel::receiver

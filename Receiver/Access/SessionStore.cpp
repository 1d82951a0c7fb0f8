#include "Access/SessionStore.h"

#include "Log.h"
#include "Secrets.h"
#include "Storage/StorageError.h"

#include <vector>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

/// How exactly the time of the last use is kept, so that not every request writes.
constexpr std::int64_t useResolution = 60 * 1000;

} // namespace

DashboardSession SessionStore::describe(const std::string &token)
{
    return {sha256(token), sha256("csrf " + token)};
}

std::string SessionStore::start(std::int64_t now)
{
    std::string token = randomSecret();
    m_database.write([&](Session &session) {
        session << "DELETE FROM sessions WHERE expires <= $1 OR used <= $2", bind(now),
            bind(now - longestIdle), Poco::Data::Keywords::now;
        session << "INSERT INTO sessions (digest, used, expires) VALUES ($1, $2, $3)",
            bind(describe(token).digest), bind(now), bind(now + longestLife), Poco::Data::Keywords::now;
    });
    return token;
}

std::optional<DashboardSession> SessionStore::find(const std::string &token, std::int64_t now)
{
    DashboardSession found = describe(token);
    std::vector<Poco::Int64> used;
    m_database.read([&](Session &session) {
        session << "SELECT used FROM sessions WHERE digest = $1 AND expires > $2 AND used > $3",
            bind(found.digest), bind(now), bind(now - longestIdle), into(used), Poco::Data::Keywords::now;
    });
    if (used.empty())
        return std::nullopt;
    if (used.front() + useResolution < now)
        noteUse(found.digest, now);
    return found;
}

/// Nobody is shut out because that can't be written, least of all who comes to make room on a full disk.
void SessionStore::noteUse(const std::string &digest, std::int64_t now)
{
    try {
        m_database.write([&](Session &session) {
            session << "UPDATE sessions SET used = $1 WHERE digest = $2", bind(now), bind(digest),
                Poco::Data::Keywords::now;
        });
    } catch (const StorageError &error) {
        logEvent("use_not_noted", {{"error", error.what()}});
    }
}

void SessionStore::end(const std::string &digest)
{
    m_database.write([&](Session &session) {
        session << "DELETE FROM sessions WHERE digest = $1", bind(digest), Poco::Data::Keywords::now;
    });
}

} // namespace wexel::receiver

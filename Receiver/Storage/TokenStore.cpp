#include "Storage/TokenStore.h"

#include "Secrets.h"

#include <vector>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

std::string TokenStore::issue(const std::string &client, int lifetime, std::int64_t now)
{
    std::string token = randomId() + randomId();
    m_database.write([&](Session &session) {
        session << "DELETE FROM tokens WHERE expires <= $1", bind(now), Poco::Data::Keywords::now;
        session << "INSERT INTO tokens (digest, client, expires) VALUES ($1, $2, $3)", bind(sha256(token)),
            bind(client), bind(now + std::int64_t(1000) * lifetime), Poco::Data::Keywords::now;
    });
    return token;
}

std::optional<std::string> TokenStore::clientOf(const std::string &token, std::int64_t now)
{
    std::vector<std::string> clients;
    m_database.read([&](Session &session) {
        session << "SELECT client FROM tokens WHERE digest = $1 AND expires > $2", bind(sha256(token)),
            bind(now), into(clients), Poco::Data::Keywords::now;
    });
    return clients.empty() ? std::nullopt : std::optional(clients.front());
}

void TokenStore::end(const std::string &token)
{
    m_database.write([&](Session &session) {
        session << "DELETE FROM tokens WHERE digest = $1", bind(sha256(token)), Poco::Data::Keywords::now;
    });
}

} // namespace wexel::receiver

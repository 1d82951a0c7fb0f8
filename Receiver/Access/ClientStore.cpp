#include "Access/ClientStore.h"

#include "Log.h"
#include "Secrets.h"
#include "Storage/StorageError.h"

#include <Poco/Ascii.h>
#include <Poco/Data/RecordSet.h>

#include <algorithm>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::RecordSet;
using Poco::Data::Session;

namespace {

constexpr std::int64_t useResolution = std::int64_t(3600) * 1000;
constexpr std::size_t maximumIdLength = 100;

void endTokens(Session &session, const std::string &id)
{
    session << "DELETE FROM tokens WHERE client = $1", bind(ClientStore::tokenHolder(id)), now;
}

/// How many rows the statement changed.
template <typename... Values>
std::size_t change(Session &session, const std::string &sql, const Values &...values)
{
    Poco::Data::Statement statement(session);
    statement << sql;
    ((statement, bind(values)), ...);
    return statement.execute();
}

void addBundles(Session &session, const std::string &id, const std::vector<std::string> &bundleIds)
{
    for (const std::string &bundle : bundleIds)
        change(session,
               "INSERT INTO client_bundles (client_id, bundle_id) VALUES ($1, $2) ON CONFLICT DO NOTHING", id,
               bundle);
}

std::vector<std::string> bundlesOf(Session &session, const std::string &id)
{
    std::vector<std::string> bundles;
    session << "SELECT bundle_id FROM client_bundles WHERE client_id = $1 ORDER BY bundle_id", bind(id),
        into(bundles), now;
    return bundles;
}

StoredClient clientAt(RecordSet &rows)
{
    StoredClient client = {rows["id"].convert<std::string>(),
                           {},
                           rows["created"].convert<Poco::Int64>(),
                           std::nullopt,
                           rows["revoked"].convert<int>() != 0};
    if (!rows["last_used"].isEmpty())
        client.lastUsed = rows["last_used"].convert<Poco::Int64>();
    return client;
}

std::vector<StoredClient> clientsOf(Session &session, Poco::Data::Statement &select)
{
    std::vector<StoredClient> clients;
    RecordSet rows(select);
    for (bool more = rows.moveFirst(); more; more = rows.moveNext())
        clients.push_back(clientAt(rows));
    for (StoredClient &client : clients)
        client.bundleIds = bundlesOf(session, client.id);
    return clients;
}

} // namespace

std::optional<std::string> ClientStore::add(const std::string &id, const std::vector<std::string> &bundleIds,
                                            std::int64_t now)
{
    std::string secret = randomSecret();
    std::size_t added = 0;
    m_database.write([&](Session &session) {
        added = change(session,
                       "INSERT INTO clients (id, secret_digest, created) VALUES ($1, $2, $3) "
                       "ON CONFLICT DO NOTHING",
                       id, sha256(secret), now);
        if (added > 0)
            addBundles(session, id, bundleIds);
    });
    return added > 0 ? std::optional(secret) : std::nullopt;
}

std::optional<std::string> ClientStore::rotate(const std::string &id)
{
    std::string secret = randomSecret();
    std::size_t changed = 0;
    m_database.write([&](Session &session) {
        changed = change(session, "UPDATE clients SET secret_digest = $1 WHERE id = $2 AND revoked = 0",
                         sha256(secret), id);
        endTokens(session, id);
    });
    endTokensIssuedMeanwhile(id);
    return changed > 0 ? std::optional(secret) : std::nullopt;
}

/// Who was issued one looked at the secret again then; either saw the change, or its token is here by now.
void ClientStore::endTokensIssuedMeanwhile(const std::string &id)
{
    m_database.write([&](Session &session) { endTokens(session, id); });
}

bool ClientStore::bindTo(const std::string &id, const std::vector<std::string> &bundleIds)
{
    std::size_t found = 0;
    m_database.write([&](Session &session) {
        // Changes nothing but takes the row, so that of two at once one wins as a whole.
        found = change(session, "UPDATE clients SET revoked = 0 WHERE id = $1 AND revoked = 0", id);
        if (found == 0)
            return;
        change(session, "DELETE FROM client_bundles WHERE client_id = $1", id);
        addBundles(session, id, bundleIds);
    });
    return found > 0;
}

bool ClientStore::revoke(const std::string &id)
{
    std::size_t changed = 0;
    m_database.write([&](Session &session) {
        changed = change(session, "UPDATE clients SET revoked = 1 WHERE id = $1", id);
        endTokens(session, id);
    });
    endTokensIssuedMeanwhile(id);
    return changed > 0;
}

std::vector<StoredClient> ClientStore::all()
{
    std::vector<StoredClient> clients;
    m_database.read([&](Session &session) {
        Poco::Data::Statement select(session);
        select << "SELECT id, created, last_used, revoked FROM clients ORDER BY id", now;
        clients = clientsOf(session, select);
    });
    return clients;
}

std::optional<StoredClient> ClientStore::find(const std::string &id)
{
    std::vector<StoredClient> clients;
    m_database.read([&](Session &session) {
        Poco::Data::Statement select(session);
        select << "SELECT id, created, last_used, revoked FROM clients WHERE id = $1 AND revoked = 0",
            bind(id), now;
        clients = clientsOf(session, select);
    });
    return clients.empty() ? std::nullopt : std::optional(clients.front());
}

bool ClientStore::authenticate(const std::string &id, const std::string &secret)
{
    std::vector<std::string> digests;
    m_database.read([&](Session &session) {
        session << "SELECT secret_digest FROM clients WHERE id = $1 AND revoked = 0", bind(id), into(digests),
            now;
    });
    return !digests.empty() && equalInConstantTime(digests.front(), sha256(secret));
}

void ClientStore::touch(const StoredClient &client, std::int64_t now)
{
    if (client.lastUsed && *client.lastUsed + useResolution > now)
        return;
    try {
        m_database.write([&](Session &session) {
            change(session, "UPDATE clients SET last_used = $1 WHERE id = $2", now, client.id);
        });
    } catch (const StorageError &error) { // which is no reason to refuse the client
        logEvent("use_not_noted", {{"error", error.what()}});
    }
}

std::string clientIdFault(const std::string &id)
{
    const auto isAllowed = [](char c) {
        return Poco::Ascii::isAlphaNumeric(static_cast<unsigned char>(c)) || c == '.' || c == '_' || c == '-';
    };
    if (!id.empty() && id.size() <= maximumIdLength && std::all_of(id.begin(), id.end(), isAllowed))
        return {};
    return "A client's id has 1 to 100 letters, digits, '.', '_' and '-'";
}

std::string randomClientId()
{
    return "client-" + randomId().substr(0, 8);
}

} // namespace wexel::receiver

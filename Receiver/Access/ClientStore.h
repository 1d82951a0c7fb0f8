#pragma once

#include "Storage/Database.h"

#include <optional>
#include <string>
#include <vector>

namespace wexel::receiver {

/// A client that was added while the receiver ran. Times are milliseconds since 1970.
struct StoredClient {
    std::string id;
    std::vector<std::string> bundleIds; ///< the only ones that it may report for; empty: any
    std::int64_t created = 0;
    std::optional<std::int64_t> lastUsed; ///< to the hour
    bool isRevoked = false;
};

/// The clients in the database, with the SHA-256 of their secrets, which is enough as those are 256 random bits. Revoked
/// ones stay, so that nobody comes to be taken for them. Every thread may use it. Throws StorageError.
class ClientStore
{
public:
    explicit ClientStore(Database &database) : m_database(database) { }

    /// Adds a client and returns its secret, which is known only now; nothing if the id is taken.
    std::optional<std::string> add(const std::string &id, const std::vector<std::string> &bundleIds,
                                   std::int64_t now);
    /// Replaces the secret and ends the client's tokens; nothing if there is no such client, or it is revoked.
    std::optional<std::string> rotate(const std::string &id);
    /// Replaces the bundle ids that the client may report for; those tokens that it has are bound to them at once. False if
    /// there is no such client, or it is revoked.
    bool bindTo(const std::string &id, const std::vector<std::string> &bundleIds);
    /// Ends the client and its tokens for good. False if there is no such client.
    bool revoke(const std::string &id);

    /// In the order of their ids.
    std::vector<StoredClient> all();
    /// The client, unless it is revoked.
    std::optional<StoredClient> find(const std::string &id);
    /// Whether that is the client's secret, and it is not revoked.
    bool authenticate(const std::string &id, const std::string &secret);
    /// Notes that \a client was used, unless that was noted in the last hour.
    void touch(const StoredClient &client, std::int64_t now);

    /// The name that the tokens of the client with \a id are kept under. Ids of other clients have no colon in them, so
    /// that a token never passes to another kind of client with the same id.
    static std::string tokenHolder(const std::string &id) { return ':' + id; }

private:
    void endTokensIssuedMeanwhile(const std::string &id);

    Database &m_database;
};

/// What is wrong with \a id as a client's id, or an empty text: it has 1 to 100 letters, digits, . _ and -.
std::string clientIdFault(const std::string &id);

/// An id for a client that was given none.
std::string randomClientId();

} // namespace wexel::receiver

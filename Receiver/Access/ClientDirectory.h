#pragma once

#include "Access/ClientStore.h"
#include "Clients.h"
#include "Http/Caller.h"
#include "Storage/TokenStore.h"

namespace wexel::receiver {

/// All clients: those of the command line, which are first, and those in the database. Every thread may use it. Throws
/// StorageError.
class ClientDirectory
{
public:
    /// All must outlive it.
    ClientDirectory(const Clients &commandLine, ClientStore &stored, TokenStore &tokens)
        : m_commandLine(commandLine)
        , m_stored(stored)
        , m_tokens(tokens)
    {
    }

    /// A token that is good for \a lifetime seconds from \a now (milliseconds since 1970), or nothing if the id or the
    /// secret is wrong.
    std::optional<std::string> issueToken(const std::string &id, const std::string &secret, int lifetime,
                                          std::int64_t now);
    /// The client that \a token was issued to, if the token is good and its client still known.
    std::optional<Caller> callerOf(const std::string &token, std::int64_t now);

private:
    std::optional<std::string> issueToStored(const std::string &id, const std::string &secret, int lifetime,
                                             std::int64_t now);
    std::optional<Caller> storedCaller(const std::string &id, std::int64_t now);

    const Clients &m_commandLine;
    ClientStore &m_stored;
    TokenStore &m_tokens;
};

} // namespace wexel::receiver

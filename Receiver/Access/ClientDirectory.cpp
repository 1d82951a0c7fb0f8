#include "Access/ClientDirectory.h"

namespace wexel::receiver {

std::optional<std::string> ClientDirectory::issueToken(const std::string &id, const std::string &secret,
                                                       int lifetime, std::int64_t now)
{
    if (!m_commandLine.contains(id))
        return issueToStored(id, secret, lifetime, now);
    if (!m_commandLine.authenticate(id, secret))
        return std::nullopt;
    return m_tokens.issue(id, lifetime, now);
}

std::optional<std::string> ClientDirectory::issueToStored(const std::string &id, const std::string &secret,
                                                          int lifetime, std::int64_t now)
{
    if (!clientIdFault(id).empty() || !m_stored.authenticate(id, secret))
        return std::nullopt;
    const std::string token = m_tokens.issue(ClientStore::tokenHolder(id), lifetime, now);
    // A secret that was rotated meanwhile has ended the tokens before this one.
    if (m_stored.authenticate(id, secret))
        return token;
    m_tokens.end(token);
    return std::nullopt;
}

std::optional<Caller> ClientDirectory::callerOf(const std::string &token, std::int64_t now)
{
    const auto holder = m_tokens.clientOf(token, now);
    if (!holder)
        return std::nullopt;
    if (holder->starts_with(ClientStore::tokenHolder({})))
        return storedCaller(holder->substr(1), now);
    return m_commandLine.contains(*holder) ? std::optional(Caller{.client = *holder}) : std::nullopt;
}

std::optional<Caller> ClientDirectory::storedCaller(const std::string &id, std::int64_t now)
{
    const auto client = m_stored.find(id);
    if (!client)
        return std::nullopt;
    m_stored.touch(*client, now);
    return Caller{.client = id, .bundleIds = client->bundleIds};
}

} // namespace wexel::receiver

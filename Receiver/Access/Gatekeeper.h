#pragma once

#include "Access/ClientDirectory.h"
#include "Access/SessionCookie.h"
#include "Access/SessionStore.h"
#include "Options.h"

#include <optional>

namespace wexel::receiver {

/// Tells who sends a request. Every thread may use it. Throws StorageError.
class Gatekeeper
{
public:
    /// All must outlive it.
    Gatekeeper(const Options &options, ClientDirectory &clients, SessionStore &sessions);

    /// The client whose bearer token \a header carries, or nothing if there is no good one.
    std::optional<Caller> client(const Poco::Net::HTTPRequest &header) const;
    /// The administrator's session whose cookie \a header carries, or nothing if there is no good one.
    std::optional<Caller> administrator(const Poco::Net::HTTPRequest &header) const;

    /// Throws HttpError 403 if a page of another site sent the request, as far as its Origin tells.
    void refuseForeignPage(const Poco::Net::HTTPRequest &header) const;
    /// Throws HttpError 403 unless a request that changes something was made by a page of ours in the session of \a caller.
    void refuseForgery(const Poco::Net::HTTPRequest &header, const Caller &caller) const;

private:
    bool isOwnHost(const std::string &host) const;

    ClientDirectory &m_clients;
    SessionStore &m_sessions;
    SessionCookie m_cookie;
    std::string m_listenHost;
    std::string m_publicOrigin;
};

} // namespace wexel::receiver

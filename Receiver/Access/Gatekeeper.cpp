#include "Access/Gatekeeper.h"

#include "Http/HttpError.h"
#include "Http/TrustedProxies.h"
#include "Secrets.h"

#include <Poco/String.h>
#include <Poco/URI.h>

namespace wexel::receiver {

using Poco::Net::HTTPRequest;

namespace {

std::string originOf(const std::string &url)
{
    const Poco::URI uri(url);
    return uri.getScheme() + "://" + uri.getAuthority();
}

std::string bearerToken(const HTTPRequest &header)
{
    const std::string value = header.get("Authorization", "");
    constexpr std::size_t schemeLength = 7;
    const bool isBearer = Poco::icompare(value, 0, schemeLength, std::string("Bearer ")) == 0;
    return isBearer ? Poco::trim(value.substr(schemeLength)) : std::string();
}

bool changesNothing(const std::string &method)
{
    return method == HTTPRequest::HTTP_GET || method == HTTPRequest::HTTP_HEAD;
}

} // namespace

Gatekeeper::Gatekeeper(const Options &options, ClientDirectory &clients, SessionStore &sessions)
    : m_clients(clients)
    , m_sessions(sessions)
    , m_cookie(options.isReachedByTls())
    , m_listenHost(options.listenHost)
    , m_publicOrigin(options.publicUrl.empty() ? "" : originOf(options.publicUrl))
{
}

/// \a host may have a port.
bool Gatekeeper::isOwnHost(const std::string &host) const
{
    Poco::Net::IPAddress address;
    const std::string name = host.substr(0, host.rfind(':'));
    return readAddress(host, address) || name == "localhost" || name == Poco::toLower(m_listenHost);
}

std::optional<Caller> Gatekeeper::client(const HTTPRequest &header) const
{
    return m_clients.callerOf(bearerToken(header), currentMilliseconds());
}

std::optional<Caller> Gatekeeper::administrator(const HTTPRequest &header) const
{
    const std::string token = m_cookie.token(header);
    if (token.empty())
        return std::nullopt;
    const auto session = m_sessions.find(token, currentMilliseconds());
    if (!session)
        return std::nullopt;
    return Caller{.session = session->digest, .csrf = session->csrf};
}

/// A page's origin is ours if it is the public address, or else has the host that the request was made to: the address, or
/// the name that we listen at. Another name could be a foreign page's, which was made to lead here after it was loaded.
void Gatekeeper::refuseForeignPage(const HTTPRequest &header) const
{
    const std::string origin = header.get("Origin", "");
    if (origin.empty() || origin == m_publicOrigin)
        return;
    const std::string host = Poco::toLower(header.get("Host", ""));
    if (!isOwnHost(host) || (origin != "http://" + host && origin != "https://" + host))
        throw HttpError(
            Status::HTTP_FORBIDDEN,
            "The request comes from a page at an address that is not known as this receiver's; if it is, "
            "start it with that as --public-url");
}

void Gatekeeper::refuseForgery(const HTTPRequest &header, const Caller &caller) const
{
    if (changesNothing(header.getMethod()))
        return;
    refuseForeignPage(header);
    if (!equalInConstantTime(header.get("X-CSRF-Token", ""), caller.csrf))
        throw HttpError(Status::HTTP_FORBIDDEN, "The header X-CSRF-Token is missing or wrong");
}

} // namespace wexel::receiver

#pragma once

#include <Poco/Net/HTTPRequest.h>

#include <string>

namespace wexel::receiver {

/// The cookie that carries a session's token. No script can read it and no foreign page can have it sent.
class SessionCookie
{
public:
    /// \a secure: browsers reach the receiver over HTTPS, so the cookie is for that alone and bound to the host name.
    explicit SessionCookie(bool secure) : m_secure(secure) { }

    /// The token in \a header; empty if there is none.
    std::string token(const Poco::Net::HTTPRequest &header) const;

    /// The values of Set-Cookie that keep the token and that remove it.
    std::string keeping(const std::string &token) const;
    std::string removing() const;

private:
    const char *name() const { return m_secure ? "__Host-wexel_session" : "wexel_session"; }
    std::string attributes() const;

    bool m_secure;
};

} // namespace wexel::receiver

#include "Access/SessionCookie.h"

#include "Access/SessionStore.h"
#include "Http/Cookies.h"

namespace wexel::receiver {

std::string SessionCookie::token(const Poco::Net::HTTPRequest &header) const
{
    return cookieValue(header, name());
}

std::string SessionCookie::keeping(const std::string &token) const
{
    return std::string(name()) + '=' + token + attributes()
        + "; Max-Age=" + std::to_string(SessionStore::longestLife / 1000);
}

std::string SessionCookie::removing() const
{
    return std::string(name()) + '=' + attributes() + "; Max-Age=0";
}

std::string SessionCookie::attributes() const
{
    return std::string("; Path=/; HttpOnly; SameSite=Strict") + (m_secure ? "; Secure" : "");
}

} // namespace wexel::receiver

#include "Http/Cookies.h"

#include "Text.h"

#include <Poco/String.h>

namespace wexel::receiver {

std::string cookieValue(const Poco::Net::HTTPRequest &header, std::string_view name)
{
    const std::string cookies = header.get("Cookie", "");
    for (const std::string_view pair : split(cookies, ';')) {
        const std::size_t equals = pair.find('=');
        if (equals != pair.npos && Poco::trim(std::string(pair.substr(0, equals))) == name)
            return Poco::trim(std::string(pair.substr(equals + 1)));
    }
    return {};
}

} // namespace wexel::receiver

#pragma once

#include <Poco/Net/HTTPRequest.h>

#include <string>

namespace wexel::receiver {

/// The value of the first cookie of that name that \a header carries, as it is; empty if there is none.
std::string cookieValue(const Poco::Net::HTTPRequest &header, std::string_view name);

} // namespace wexel::receiver

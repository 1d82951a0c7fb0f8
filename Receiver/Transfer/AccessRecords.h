#pragma once

#include <Poco/Data/Session.h>

#include <string>

namespace wexel::receiver {

/// The administrator's password and the clients' secrets, hashed as they are kept: one JSON object a line.
std::string accessText(Poco::Data::Session &session);

/// Takes over what is not known yet; what is stays. Throws a Poco::Exception if \a text is something else.
void restoreAccess(Poco::Data::Session &session, const std::string &text);

} // namespace wexel::receiver

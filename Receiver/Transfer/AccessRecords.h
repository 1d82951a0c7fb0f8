#pragma once

#include <Poco/Data/Session.h>

#include <cstdint>
#include <string>

namespace wexel::receiver {

/// The administrator's password and the clients' secrets, hashed as they are kept: one JSON object a line.
std::string accessText(Poco::Data::Session &session);

struct RestoredAccess {
    enum class Password { None, Taken, Kept }; ///< kept: another one was set here

    Password password = Password::None;
    std::int64_t clients = 0; ///< taken
    std::int64_t knownClients = 0; ///< which stay as they are here
};

/// Takes over what is not known yet; what is stays. Throws a Poco::Exception if \a text is something else.
RestoredAccess restoreAccess(Poco::Data::Session &session, const std::string &text);

} // namespace wexel::receiver

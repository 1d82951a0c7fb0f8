#pragma once

#include <Poco/Data/Session.h>
#include <Poco/JSON/Object.h>

#include <cstdint>
#include <string>
#include <vector>

namespace wexel::receiver {

/// The administrator's password and the clients' secrets, hashed as they are kept: one JSON object a line.
std::string accessText(Poco::Data::Session &session);

struct RestoredAccess {
    enum class Password { None, Taken, Kept }; ///< kept: another one was set here

    Password password = Password::None;
    std::int64_t clients = 0; ///< taken
    std::int64_t knownClients = 0; ///< which stay as they are here
};

/// The objects of such lines. Throws a Poco::Exception if \a text is something else, or a name in it is none.
std::vector<Poco::JSON::Object::Ptr> readAccess(const std::string &text);

/// Takes over what is not known yet; what is stays.
RestoredAccess restoreAccess(Poco::Data::Session &session,
                             const std::vector<Poco::JSON::Object::Ptr> &records);

} // namespace wexel::receiver

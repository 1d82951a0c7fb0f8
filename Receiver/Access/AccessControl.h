#pragma once

#include "Access/Gatekeeper.h"
#include "Access/SignIn.h"

namespace wexel::receiver {

/// Everything that tells who may do what, put together.
struct AccessControl {
    /// All must outlive it.
    AccessControl(const Options &options, Database &database, TokenStore &tokens)
        : administrator(database)
        , signIn(administrator)
        , sessions(database)
        , cookie(options.isReachedByTls())
        , gatekeeper(options, tokens, sessions)
    {
    }

    Administrator administrator;
    SignIn signIn;
    SessionStore sessions;
    SessionCookie cookie;
    Gatekeeper gatekeeper;
};

} // namespace wexel::receiver

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
        , storedClients(database)
        , clients(options.clients, storedClients, tokens)
        , gatekeeper(options, clients, sessions)
    {
    }

    Administrator administrator;
    SignIn signIn;
    SessionStore sessions;
    SessionCookie cookie;
    ClientStore storedClients;
    ClientDirectory clients;
    Gatekeeper gatekeeper;
};

} // namespace wexel::receiver

#pragma once

#include "Access/AccessControl.h"
#include "Http/Router.h"

namespace wexel::receiver {

/// Adds what signs in and out, changes the password, and manages clients. Both others must outlive the router.
void addAccessRoutes(Router &router, AccessControl &access, const Clients &commandLineClients);

} // namespace wexel::receiver

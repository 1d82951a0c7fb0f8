#pragma once

#include "Access/AccessControl.h"
#include "Http/Router.h"

namespace wexel::receiver {

/// Adds what signs in and out, and changes the password. \a access must outlive the router.
void addAccessRoutes(Router &router, AccessControl &access);

} // namespace wexel::receiver

#include "Handlers/Dashboard/AccessRoutes.h"

#include "Handlers/Dashboard/PasswordHandler.h"
#include "Handlers/Dashboard/SessionHandlers.h"

namespace wexel::receiver {

using Access = Router::Access;

void addAccessRoutes(Router &router, AccessControl &access)
{
    const std::string session = "dashboard/api/session";
    router.add(
        "POST", session, Access::Anyone,
        std::make_unique<SignInHandler>(access.signIn, access.sessions, access.gatekeeper, access.cookie));
    router.add("GET", session, Access::SessionNeeded,
               std::make_unique<SessionHandler>(WEXEL_RECEIVER_VERSION));
    router.add("DELETE", session, Access::SessionNeeded,
               std::make_unique<SignOutHandler>(access.sessions, access.cookie));
    router.add("POST", "dashboard/api/password", Access::SessionNeeded,
               std::make_unique<PasswordHandler>(access.signIn, access.administrator));
}

} // namespace wexel::receiver

#include "Handlers/Dashboard/AccessRoutes.h"

#include "Handlers/Dashboard/ClientHandlers.h"
#include "Handlers/Dashboard/PasswordHandler.h"
#include "Handlers/Dashboard/SessionHandlers.h"

namespace wexel::receiver {

using Access = Router::Access;

void addAccessRoutes(Router &router, AccessControl &access, const Clients &commandLineClients)
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
               std::make_unique<PasswordHandler>(access.signIn, access.administrator, access.sessions,
                                                 access.cookie));
    const std::string clients = "dashboard/api/clients";
    ClientStore &store = access.storedClients;
    router.add("GET", clients, Access::SessionNeeded,
               std::make_unique<ClientsHandler>(store, commandLineClients));
    router.add("POST", clients, Access::SessionNeeded,
               std::make_unique<AddClientHandler>(store, commandLineClients));
    router.add("POST", clients + "/{}/rotate", Access::SessionNeeded,
               std::make_unique<RotateClientHandler>(store));
    router.add("PUT", clients + "/{}", Access::SessionNeeded, std::make_unique<BindClientHandler>(store));
    router.add("DELETE", clients + "/{}", Access::SessionNeeded,
               std::make_unique<RevokeClientHandler>(store));
}

} // namespace wexel::receiver

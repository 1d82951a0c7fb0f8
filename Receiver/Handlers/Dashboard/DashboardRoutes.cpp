#include "Handlers/Dashboard/DashboardRoutes.h"

#include "Handlers/Dashboard/PagesHandler.h"

namespace wexel::receiver {

using Access = Router::Access;

void addDashboardPages(Router &router)
{
    router.add("GET", "", Access::Anyone, std::make_unique<FrontDoorHandler>());
    router.add("GET", "dashboard", Access::Anyone, std::make_unique<FrontDoorHandler>());
    router.add("GET", "dashboard/", Access::Anyone, std::make_unique<PagesHandler>());
    router.add("GET", "dashboard/assets/{}", Access::Anyone, std::make_unique<PagesHandler>());
}

} // namespace wexel::receiver

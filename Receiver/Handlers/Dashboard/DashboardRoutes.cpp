#include "Handlers/Dashboard/DashboardRoutes.h"

#include "Handlers/Dashboard/ApplicationListHandler.h"
#include "Handlers/Dashboard/PagesHandler.h"
#include "Handlers/Dashboard/ReportArchiveHandler.h"
#include "Handlers/Dashboard/ReportListHandler.h"
#include "Handlers/Dashboard/ReportViewHandler.h"
#include "Handlers/Dashboard/RetentionHandler.h"
#include "Handlers/Dashboard/ThumbnailHandler.h"

namespace wexel::receiver {

using Access = Router::Access;

void addDashboardPages(Router &router)
{
    router.add("GET", "", Access::Anyone, std::make_unique<FrontDoorHandler>());
    router.add("GET", "dashboard", Access::Anyone, std::make_unique<FrontDoorHandler>());
    router.add("GET", "dashboard/", Access::Anyone, std::make_unique<PagesHandler>());
    router.add("GET", "dashboard/assets/{}", Access::Anyone, std::make_unique<PagesHandler>());
}

void addDashboardData(Router &router, DataFolder &data)
{
    const auto add
        = [&](const std::string &method, const std::string &path, std::unique_ptr<Handler> handler) {
              router.add(method, "dashboard/api/" + path, Access::SessionNeeded, std::move(handler));
          };
    ReportStore &store = data.reports();
    add("GET", "applications", std::make_unique<ApplicationListHandler>(store));
    add("POST", "applications/{}/archive", std::make_unique<ArchivedHandler>(store, true));
    add("POST", "applications/{}/unarchive", std::make_unique<ArchivedHandler>(store, false));
    add("PUT", "applications/{}/retention", std::make_unique<RetentionHandler>(store));
    add("GET", "reports", std::make_unique<ReportListHandler>(store));
    add("GET", "filters", std::make_unique<FiltersHandler>(store));
    add("GET", "reports/{}", std::make_unique<ReportViewHandler>(store));
    add("DELETE", "reports/{}", std::make_unique<ReportRemovalHandler>(store));
    add("GET", "reports/{}/thumbnail", std::make_unique<ThumbnailHandler>(data.files(), store));
    add("GET", "reports/{}/archive", std::make_unique<ReportArchiveHandler>(data.files(), store));
}

} // namespace wexel::receiver

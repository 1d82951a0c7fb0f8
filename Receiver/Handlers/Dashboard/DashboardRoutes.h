#pragma once

#include "Http/Router.h"
#include "Storage/DataFolder.h"

namespace wexel::receiver {

/// The dashboard's pages, which hold no data.
void addDashboardPages(Router &router);

/// What the pages ask for: the reports, the files and the applications.
void addDashboardData(Router &router, DataFolder &data);

} // namespace wexel::receiver

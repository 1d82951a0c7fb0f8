#pragma once

#include "Http/Router.h"

namespace wexel::receiver {

/// The dashboard's pages, which hold no data.
void addDashboardPages(Router &router);

} // namespace wexel::receiver

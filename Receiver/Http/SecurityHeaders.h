#pragma once

#include "Http/Answer.h"

namespace wexel::receiver {

/// Whether the dashboard is at \a path, which is without its leading slash.
bool isOfDashboard(std::string_view path);

/// Adds what keeps a browser from running, framing or leaking anything that the dashboard shows; a header that the answer
/// has already stays. \a usesTls also tells the browser to come back by HTTPS only.
void protect(Answer &answer, bool usesTls);

} // namespace wexel::receiver

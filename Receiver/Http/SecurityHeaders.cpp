#include "Http/SecurityHeaders.h"

#include <algorithm>

namespace wexel::receiver {

namespace {

/// Nothing but what the receiver itself serves, and nothing inline.
constexpr const char *contentPolicy
    = "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob:; connect-src 'self'; "
      "form-action 'self'; base-uri 'none'; frame-ancestors 'none'";

void addUnlessThere(Answer &answer, const std::string &name, const std::string &value)
{
    const bool isThere = std::any_of(answer.headers.begin(), answer.headers.end(),
                                     [&](const auto &header) { return header.first == name; });
    if (!isThere)
        answer.headers.emplace_back(name, value);
}

} // namespace

bool isOfDashboard(std::string_view path)
{
    return path.empty() || path == "dashboard" || path.starts_with("dashboard/");
}

void protect(Answer &answer, bool usesTls)
{
    addUnlessThere(answer, "Content-Security-Policy", contentPolicy);
    addUnlessThere(answer, "Referrer-Policy", "no-referrer");
    addUnlessThere(answer, "Cross-Origin-Opener-Policy", "same-origin");
    addUnlessThere(answer, "X-Frame-Options", "DENY");
    if (usesTls)
        addUnlessThere(answer, "Strict-Transport-Security", "max-age=31536000");
}

} // namespace wexel::receiver

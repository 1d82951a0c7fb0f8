#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace wexel::receiver {

/// Who sends a request, as far as its route asks for that.
struct Caller {
    std::string client = {}; ///< the id of the client that a token was issued to
    std::vector<std::string> bundleIds = {}; ///< the only ones that the client may report for, or empty: any
    std::string session = {}; ///< the digest of the dashboard's session
    std::string csrf = {}; ///< what the session's changing requests must carry

    bool mayReportFor(const std::string &bundleId) const
    {
        return bundleIds.empty()
            || std::find(bundleIds.begin(), bundleIds.end(), bundleId) != bundleIds.end();
    }
};

} // namespace wexel::receiver

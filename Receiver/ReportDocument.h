#pragma once

#include <string>
#include <vector>

namespace wexel::receiver {

/// The files that a report's JSON names. The rest of it is stored as it is and read by whoever shows it.
struct ReportDocument {
    std::string screenshotUrl; ///< under "screenshot_url"
    std::vector<std::string> fileUrls; ///< under "files", each entry's "url"
};

/// Checks that \a json is one JSON object and picks the addresses out of it, without building the whole in memory. Throws
/// HttpError 400.
ReportDocument readReportDocument(const std::string &json);

} // namespace wexel::receiver

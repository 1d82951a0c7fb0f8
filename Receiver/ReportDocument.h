#pragma once

#include "Storage/ReportStore.h"

#include <string>
#include <vector>

namespace wexel::receiver {

/// What the receiver itself reads in a report. The rest is stored as it is and read by whoever shows it.
struct ReportDocument {
    std::string screenshotUrl; ///< under "screenshot_url"
    std::vector<std::string> fileUrls; ///< under "files", each entry's "url"
    ReportFacts facts;
    std::string digest; ///< of everything but the addresses above, see JsonDigest
};

/// Checks that \a json is one JSON object and picks the above out of it, without building the whole in memory. Throws
/// HttpError 400.
ReportDocument readReportDocument(const std::string &json);

/// The report of \a json, ready to be stored. Throws HttpError 400.
NewReport newReport(const std::string &bundleId, std::string json, std::int64_t received);

} // namespace wexel::receiver

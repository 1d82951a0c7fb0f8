#pragma once

#include "Storage/ReportStore.h"

#include <set>
#include <string>

namespace wexel::receiver {

/// True for what can be the id of a file, which becomes part of a path.
bool isFileId(const std::string &id);

/// What an export says of a report beside its JSON.
struct ReportRecord {
    std::int64_t received = 0; ///< milliseconds since 1970
    std::string bundleId;
    ReportFiles files;
    std::set<std::string> lost = {}; ///< the ids of those files whose bytes were lost
};

/// Each as JSON, and read back from it. Reading throws an HttpError or a Poco::Exception if it is something else.
std::string recordText(std::int64_t id, const ReportRecord &record);
ReportRecord readReportRecord(const std::string &text);

std::string recordText(const ApplicationOverview &application);
ApplicationOverview readApplicationRecord(const std::string &line);

} // namespace wexel::receiver

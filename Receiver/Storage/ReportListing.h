#pragma once

#include "Storage/ReportStore.h"

#include <Poco/Data/Session.h>

#include <string>
#include <vector>

namespace wexel::receiver {

/// Writes what a report's row says beside its JSON (\a jsonSize bytes), so that the list and the search need not read it.
/// To be called when its files are linked.
void describe(Poco::Data::Session &session, std::int64_t id, const std::string &bundleId,
              const ReportFacts &facts, std::size_t jsonSize);

/// \a text as it is searched for: in lower case, without what a database can't hold, at most \a size bytes.
std::string searchText(const std::string &text, std::size_t size);

/// By bundle id.
std::vector<ApplicationOverview> readApplications(Poco::Data::Session &session);

/// Writes the listings and digests of reports that were stored before there were any.
void describeReports(Poco::Data::Session &session);

} // namespace wexel::receiver

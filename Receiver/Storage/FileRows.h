#pragma once

#include "Storage/ReportStore.h"

#include <Poco/Data/Session.h>

#include <string>
#include <vector>

namespace wexel::receiver {

std::optional<StoredFile> readFile(Poco::Data::Session &session, const std::string &id);

ReportFiles readFilesOf(Poco::Data::Session &session, std::int64_t reportId);

/// From now on the file's bytes are at \a location.
void moveFile(Poco::Data::Session &session, const std::string &id, const std::string &location);

/// The files that the report names; each id once.
std::vector<std::string> filesNamedBy(Poco::Data::Session &session, std::int64_t reportId);

/// Deletes the rows of those \a files that no report names. Returns the locations that no file has any more, whose bytes
/// are to be deleted after the transaction.
std::vector<std::string> removeUnnamedFiles(Poco::Data::Session &session,
                                            const std::vector<std::string> &files);

} // namespace wexel::receiver

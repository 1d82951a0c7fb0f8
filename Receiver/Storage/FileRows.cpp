#include "Storage/FileRows.h"

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

/// The location of the file that is deleted; empty if a report names it or it is not there.
std::string removeUnnamedFile(Session &session, const std::string &id)
{
    std::string location;
    session << "DELETE FROM files WHERE id = $1 AND NOT EXISTS (SELECT 1 FROM report_files WHERE file_id = "
               "files.id) RETURNING location",
        bind(id), into(location), now;
    return location;
}

bool hasFile(Session &session, const std::string &location)
{
    int count = 0;
    session << "SELECT count(*) FROM files WHERE location = $1", bind(location), into(count), now;
    return count != 0;
}

} // namespace

std::vector<std::string> filesNamedBy(Session &session, std::int64_t reportId)
{
    std::vector<std::string> files;
    session << "SELECT DISTINCT file_id FROM report_files WHERE report_id = $1", bind(reportId), into(files),
        now;
    return files;
}

std::vector<std::string> removeUnnamedFiles(Session &session, const std::vector<std::string> &files)
{
    std::vector<std::string> locations;
    for (const std::string &id : files) {
        const std::string location = removeUnnamedFile(session, id);
        if (!location.empty() && !hasFile(session, location))
            locations.push_back(location);
    }
    return locations;
}

} // namespace wexel::receiver

#include "Storage/FileRows.h"

#include <Poco/Data/RecordSet.h>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::RecordSet;
using Poco::Data::Session;
using Poco::Data::Statement;

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

StoredFile fileAt(RecordSet &rows)
{
    return {rows["id"].convert<std::string>(),      rows["sha256"].convert<std::string>(),
            rows["name"].convert<std::string>(),    rows["content_type"].convert<std::string>(),
            rows["size"].convert<Poco::UInt64>(),   rows["received"].convert<Poco::Int64>(),
            rows["location"].convert<std::string>()};
}

} // namespace

std::optional<StoredFile> readFile(Session &session, const std::string &id)
{
    Statement select(session);
    select << "SELECT id, sha256, name, content_type, size, received, location FROM files WHERE id = $1",
        bind(id), now;
    RecordSet rows(select);
    return rows.moveFirst() ? std::optional(fileAt(rows)) : std::nullopt;
}

void moveFile(Session &session, const std::string &id, const std::string &location)
{
    session << "UPDATE files SET location = $1 WHERE id = $2", bind(location), bind(id), now;
}

ReportFiles readFilesOf(Session &session, std::int64_t reportId)
{
    ReportFiles files;
    Statement select(session);
    select << "SELECT id, sha256, name, content_type, size, received, location, position FROM report_files "
              "JOIN files ON id = file_id WHERE report_id = $1 ORDER BY position",
        bind(reportId), now;
    RecordSet rows(select);
    for (bool more = rows.moveFirst(); more; more = rows.moveNext()) {
        if (rows["position"].convert<int>() == 0)
            files.screenshot = fileAt(rows);
        else
            files.files.push_back(fileAt(rows));
    }
    return files;
}

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

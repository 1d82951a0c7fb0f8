#include "Storage/SqliteReportStore.h"

#include <Poco/Data/RecordSet.h>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::RecordSet;
using Poco::Data::Session;

namespace {

void insertApplication(Session &session, const Application &application)
{
    session << "INSERT OR IGNORE INTO applications (bundle_id, os, platform) VALUES (?, ?, ?)",
        bind(application.bundleId), bind(application.os), bind(application.platform), now;
}

bool readArchived(Session &session, const std::string &bundleId)
{
    int archived = 0;
    session << "SELECT archived FROM applications WHERE bundle_id = ?", bind(bundleId), into(archived), now;
    return archived != 0;
}

std::int64_t insertReport(Session &session, const NewReport &report)
{
    session << "INSERT INTO reports (received, bundle_id, json) VALUES (?, ?, ?)", bind(report.received),
        bind(report.bundleId), useRef(report.json), now;
    Poco::Int64 id = 0;
    session << "SELECT last_insert_rowid()", into(id), now;
    return id;
}

/// Links a file to a report; an id that is not ours (reports may carry any address) links nothing.
void linkFile(Session &session, std::int64_t reportId, int position, const std::string &fileId)
{
    session
        << "INSERT INTO report_files (report_id, position, file_id) SELECT ?, ?, id FROM files WHERE id = ?",
        bind(reportId), bind(position), bind(fileId), now;
}

StoredFile fileAt(RecordSet &rows)
{
    return {rows["id"].convert<std::string>(),    rows["sha256"].convert<std::string>(),
            rows["name"].convert<std::string>(),  rows["content_type"].convert<std::string>(),
            rows["size"].convert<Poco::UInt64>(), rows["received"].convert<Poco::Int64>()};
}

} // namespace

void SqliteReportStore::registerApplication(const Application &application)
{
    m_database.write([&](Session &session) { insertApplication(session, application); });
}

bool SqliteReportStore::isArchived(const std::string &bundleId)
{
    bool archived = false;
    m_database.read([&](Session &session) { archived = readArchived(session, bundleId); });
    return archived;
}

bool SqliteReportStore::setArchived(const std::string &bundleId, bool archived)
{
    bool known = false;
    m_database.write([&](Session &session) {
        int count = 0;
        session << "SELECT count(*) FROM applications WHERE bundle_id = ?", bind(bundleId), into(count), now;
        known = count != 0;
        insertApplication(session, {bundleId, "", ""});
        session << "UPDATE applications SET archived = ? WHERE bundle_id = ?", bind(archived ? 1 : 0),
            bind(bundleId), now;
    });
    return known;
}

void SqliteReportStore::addFile(const StoredFile &file)
{
    m_database.write([&](Session &session) {
        session
            << "INSERT INTO files (id, sha256, name, content_type, size, received) VALUES (?, ?, ?, ?, ?, ?)",
            bind(file.id), bind(file.sha256), bind(file.name), bind(file.contentType),
            bind(static_cast<Poco::Int64>(file.size)), bind(file.received), now;
    });
}

std::optional<StoredFile> SqliteReportStore::file(const std::string &id)
{
    std::optional<StoredFile> file;
    m_database.read([&](Session &session) {
        Poco::Data::Statement select(session);
        select << "SELECT id, sha256, name, content_type, size, received FROM files WHERE id = ?", bind(id),
            now;
        RecordSet rows(select);
        if (rows.moveFirst())
            file = fileAt(rows);
    });
    return file;
}

std::size_t SqliteReportStore::removeUnreportedFiles(std::int64_t before)
{
    std::size_t count = 0;
    m_database.write([&](Session &session) {
        Poco::Data::Statement remove(session);
        remove << "DELETE FROM files WHERE received < ? AND id NOT IN (SELECT file_id FROM report_files)",
            bind(before);
        count = remove.execute();
    });
    return count;
}

std::set<std::string> SqliteReportStore::fileContents()
{
    std::set<std::string> contents;
    m_database.read([&](Session &session) { session << "SELECT sha256 FROM files", into(contents), now; });
    return contents;
}

std::optional<std::int64_t> SqliteReportStore::addReport(const NewReport &report)
{
    std::optional<std::int64_t> id;
    m_database.write([&](Session &session) {
        if (readArchived(session, report.bundleId))
            return;
        insertApplication(session, {report.bundleId, "", ""});
        id = insertReport(session, report);
        linkFile(session, *id, 0, report.screenshotId);
        for (std::size_t i = 0; i < report.fileIds.size(); ++i)
            linkFile(session, *id, static_cast<int>(i) + 1, report.fileIds[i]);
    });
    return id;
}

std::vector<ReportSummary> SqliteReportStore::reports()
{
    std::vector<ReportSummary> reports;
    m_database.read([&](Session &session) {
        Poco::Data::Statement select(session);
        select << "SELECT id, received, bundle_id FROM reports ORDER BY id", now;
        RecordSet rows(select);
        for (bool more = rows.moveFirst(); more; more = rows.moveNext())
            reports.push_back({rows[0].convert<Poco::Int64>(), rows[1].convert<Poco::Int64>(),
                               rows[2].convert<std::string>()});
    });
    return reports;
}

std::optional<std::string> SqliteReportStore::reportJson(std::int64_t id)
{
    std::vector<std::string> found;
    m_database.read([&](Session &session) {
        session << "SELECT json FROM reports WHERE id = ?", bind(id), into(found), now;
    });
    return found.empty() ? std::nullopt : std::optional(found.front());
}

ReportFiles SqliteReportStore::filesOf(std::int64_t reportId)
{
    ReportFiles files;
    m_database.read([&](Session &session) {
        Poco::Data::Statement select(session);
        select << "SELECT id, sha256, name, content_type, size, received, position FROM report_files "
                  "JOIN files ON id = file_id WHERE report_id = ? ORDER BY position",
            bind(reportId), now;
        RecordSet rows(select);
        for (bool more = rows.moveFirst(); more; more = rows.moveNext()) {
            if (rows["position"].convert<int>() == 0)
                files.screenshot = fileAt(rows);
            else
                files.files.push_back(fileAt(rows));
        }
    });
    return files;
}

} // namespace wexel::receiver

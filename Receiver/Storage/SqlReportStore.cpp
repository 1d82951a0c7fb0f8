#include "Storage/SqlReportStore.h"

#include "Storage/FileRows.h"
#include "Storage/ReportDigest.h"
#include "Storage/ReportListing.h"
#include "Storage/StorageError.h"
#include "Text.h"

#include <Poco/Data/RecordSet.h>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::RecordSet;
using Poco::Data::Session;
using Poco::Data::Statement;

namespace {

void insertApplication(Session &session, const Application &application)
{
    session
        << "INSERT INTO applications (bundle_id, os, platform) VALUES ($1, $2, $3) ON CONFLICT DO NOTHING",
        bind(application.bundleId), bind(storable(application.os)), bind(storable(application.platform)), now;
}

bool readArchived(Session &session, const std::string &bundleId)
{
    int archived = 0;
    session << "SELECT archived FROM applications WHERE bundle_id = $1", bind(bundleId), into(archived), now;
    return archived != 0;
}

/// Links a file to a report. An id that is not ours (reports may carry any address) links nothing, and returns false.
bool linkFile(Session &session, std::int64_t reportId, int position, const std::string &fileId)
{
    Statement insert(session);
    insert << "INSERT INTO report_files (report_id, position, file_id) SELECT $1, $2, id FROM files "
              "WHERE id = $3",
        bind(reportId), bind(position), bind(fileId);
    return insert.execute() == 1;
}

void linkFiles(Session &session, std::int64_t reportId, const NewReport &report)
{
    bool areKnown = linkFile(session, reportId, 0, report.screenshotId) || report.screenshotId.empty();
    int position = 0;
    for (const std::string &fileId : report.fileIds)
        areKnown = linkFile(session, reportId, ++position, fileId) && areKnown;
    if (report.isImported && !areKnown)
        throw StorageError(StorageError::Kind::Failed, "A file was removed before its report came");
}

std::int64_t insertReport(Session &session, const NewReport &report)
{
    std::int64_t id = 0;
    session << "INSERT INTO reports (received, bundle_id) VALUES ($1, $2) RETURNING id",
        bind(report.received), bind(report.bundleId), into(id), now;
    session << "INSERT INTO report_documents (report_id, json) VALUES ($1, $2)", bind(id),
        useRef(report.json), now;
    linkFiles(session, id, report);
    describe(session, id, report.bundleId, report.facts, report.json.size());
    return id;
}

std::vector<std::string> filesNamedIn(const NewReport &report)
{
    std::vector<std::string> files = report.fileIds;
    files.push_back(report.screenshotId);
    return files;
}

bool isKnown(Session &session, const std::string &bundleId)
{
    int count = 0;
    session << "SELECT count(*) FROM applications WHERE bundle_id = $1", bind(bundleId), into(count), now;
    return count != 0;
}

} // namespace

void SqlReportStore::registerApplication(const Application &application)
{
    m_database.write([&](Session &session) { insertApplication(session, application); });
}

bool SqlReportStore::isArchived(const std::string &bundleId)
{
    bool archived = false;
    m_database.read([&](Session &session) { archived = readArchived(session, bundleId); });
    return archived;
}

bool SqlReportStore::setArchived(const std::string &bundleId, bool archived)
{
    bool known = false;
    m_database.write([&](Session &session) {
        known = isKnown(session, bundleId);
        insertApplication(session, {bundleId, "", ""});
        session << "UPDATE applications SET archived = $1 WHERE bundle_id = $2", bind(archived ? 1 : 0),
            bind(bundleId), now;
    });
    return known;
}

void SqlReportStore::addFile(const StoredFile &file)
{
    m_database.write([&](Session &session) {
        session << "INSERT INTO files (id, sha256, name, content_type, size, received, location) "
                   "VALUES ($1, $2, $3, $4, $5, $6, $7)",
            bind(file.id), bind(file.sha256), bind(file.name), bind(file.contentType),
            bind(static_cast<Poco::Int64>(file.size)), bind(file.received), bind(file.location), now;
    });
}

std::optional<StoredFile> SqlReportStore::file(const std::string &id)
{
    std::optional<StoredFile> file;
    if (!isId(id))
        return file;
    m_database.read([&](Session &session) { file = readFile(session, id); });
    return file;
}

std::optional<AddedReport> SqlReportStore::addReport(const NewReport &report)
{
    const std::string textDigest = ReportDigest::ofText(report);
    std::optional<AddedReport> added;
    std::vector<std::string> unneeded;
    m_database.write([&](Session &session) {
        added.reset();
        if (!report.isImported && readArchived(session, report.bundleId))
            return;
        insertApplication(session, {report.bundleId, "", ""});
        const ReportDigest digest(session, report, textDigest);
        if (const auto known = digest.find(session)) {
            digest.insertText(session, *known);
            if (!report.isImported)
                unneeded = removeUnnamedFiles(session, filesNamedIn(report));
            added = {*known, false};
        } else {
            added = {insertReport(session, report), true};
            digest.insert(session, added->id);
        }
    });
    removeBytes(unneeded);
    return added;
}

std::vector<ReportSummary> SqlReportStore::reports()
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

std::optional<std::string> SqlReportStore::reportJson(std::int64_t id)
{
    std::vector<std::string> found;
    m_database.read([&](Session &session) {
        session << "SELECT json FROM report_documents WHERE report_id = $1", bind(id), into(found), now;
    });
    return found.empty() ? std::nullopt : std::optional(found.front());
}

ReportFiles SqlReportStore::filesOf(std::int64_t reportId)
{
    ReportFiles files;
    m_database.read([&](Session &session) { files = readFilesOf(session, reportId); });
    return files;
}

bool SqlReportStore::setRetention(const std::string &bundleId, const Retention &retention)
{
    const auto nullable = [](const std::optional<std::int64_t> &value) {
        return value ? Poco::Nullable<std::int64_t>(*value) : Poco::Nullable<std::int64_t>();
    };
    bool known = false;
    m_database.write([&](Session &session) {
        known = isKnown(session, bundleId);
        session << "UPDATE applications SET max_age_days = $1, max_bytes = $2 WHERE bundle_id = $3",
            bind(nullable(retention.maximumAgeDays)), bind(nullable(retention.maximumBytes)), bind(bundleId),
            now;
    });
    return known;
}

} // namespace wexel::receiver

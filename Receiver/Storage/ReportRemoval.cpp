#include "Log.h"
#include "Storage/FileRows.h"
#include "Storage/SqlReportStore.h"
#include "Storage/StorageError.h"

#include <Poco/Data/RecordSet.h>

#include <algorithm>
#include <set>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::RecordSet;
using Poco::Data::Session;
using Poco::Data::Statement;

namespace {

/// Whether there was one.
bool deleteReport(Session &session, std::int64_t id)
{
    session << "DELETE FROM report_files WHERE report_id = $1", bind(id), now;
    session << "DELETE FROM report_documents WHERE report_id = $1", bind(id), now;
    std::vector<std::int64_t> deleted;
    session << "DELETE FROM reports WHERE id = $1 RETURNING id", bind(id), into(deleted), now;
    return !deleted.empty();
}

/// The reports that are too old, or too many behind the newest ones, for their applications.
std::vector<ExpiredReport> expiredReports(Session &session, std::int64_t now, std::size_t most)
{
    Statement select(session);
    select << "SELECT id, bundle_id, received, bytes FROM (SELECT reports.id AS id, reports.bundle_id AS "
              "bundle_id, received, bytes, max_age_days, max_bytes, sum(bytes) OVER (PARTITION BY "
              "reports.bundle_id ORDER BY received DESC, reports.id DESC) AS total FROM reports JOIN "
              "applications ON applications.bundle_id = reports.bundle_id WHERE max_age_days IS NOT NULL OR "
              "max_bytes IS NOT NULL) AS kept WHERE received < $1 - max_age_days * 86400000 OR total > "
              "max_bytes ORDER BY id LIMIT $2",
        bind(now), bind(static_cast<std::int64_t>(most));
    select.execute();
    RecordSet rows(select);
    std::vector<ExpiredReport> reports;
    for (bool more = rows.moveFirst(); more; more = rows.moveNext())
        reports.push_back({rows[0].convert<Poco::Int64>(), rows[1].convert<std::string>(),
                           rows[2].convert<Poco::Int64>(), rows[3].convert<Poco::Int64>()});
    return reports;
}

std::string placeholders(std::size_t count)
{
    std::string text;
    for (std::size_t i = 1; i <= count; ++i)
        text += (i == 1 ? "$" : ", $") + std::to_string(i);
    return text;
}

/// Of \a locations, those that files have.
std::vector<std::string> knownLocations(Session &session, const std::vector<std::string> &locations)
{
    std::vector<std::string> known;
    Statement select(session);
    select << "SELECT DISTINCT location FROM files WHERE location IN (" + placeholders(locations.size())
            + ")",
        into(known);
    for (const std::string &location : locations)
        select.addBind(bind(location));
    select.execute();
    return known;
}

} // namespace

bool SqlReportStore::removeReport(std::int64_t id)
{
    const bool wasThere = removeWithBytes(id);
    m_database.discardDeleted();
    return wasThere;
}

void SqlReportStore::removeExpired(const std::vector<ExpiredReport> &reports,
                                   const std::function<void(const ExpiredReport &)> &removed)
{
    for (const ExpiredReport &report : reports) {
        if (removeWithBytes(report.id))
            removed(report);
    }
    m_database.discardDeleted();
}

bool SqlReportStore::removeWithBytes(std::int64_t reportId)
{
    bool wasThere = false;
    std::vector<std::string> unneeded;
    m_database.write([&](Session &session) {
        const std::vector<std::string> files = filesNamedBy(session, reportId);
        wasThere = deleteReport(session, reportId);
        unneeded = removeUnnamedFiles(session, files);
    });
    removeBytes(unneeded);
    return wasThere;
}

std::vector<ExpiredReport> SqlReportStore::reportsBeyondRetention(std::int64_t now, std::size_t most)
{
    std::vector<ExpiredReport> reports;
    m_database.read([&](Session &session) { reports = expiredReports(session, now, most); });
    return reports;
}

std::size_t SqlReportStore::removeUnreportedFiles(std::int64_t before)
{
    std::vector<std::string> files;
    std::vector<std::string> unneeded;
    m_database.write([&](Session &session) {
        files.clear();
        session
            << "SELECT id FROM files WHERE received < $1 AND NOT EXISTS (SELECT 1 FROM report_files WHERE "
               "file_id = files.id)",
            bind(before), into(files), now;
        unneeded = removeUnnamedFiles(session, files);
    });
    removeBytes(unneeded);
    m_database.discardDeleted(); // also what was kept from it before
    return files.size();
}

std::vector<std::string> SqlReportStore::unknownLocations(const std::vector<std::string> &locations)
{
    constexpr std::size_t atOnce = 500;
    std::set<std::string> unknown = {locations.begin(), locations.end()};
    m_database.read([&](Session &session) {
        for (std::size_t i = 0; i < locations.size(); i += atOnce) {
            const auto begin = locations.begin() + static_cast<std::ptrdiff_t>(i);
            const auto end = begin + static_cast<std::ptrdiff_t>(std::min(atOnce, locations.size() - i));
            for (const std::string &known : knownLocations(session, {begin, end}))
                unknown.erase(known);
        }
    });
    return {unknown.begin(), unknown.end()};
}

/// A failure leaves bytes that the sweep finds.
void SqlReportStore::removeBytes(const std::vector<std::string> &locations)
{
    for (const std::string &location : locations) {
        try {
            m_files.remove(location);
        } catch (const StorageError &error) {
            logEvent("storage_failed", {{"error", error.what()}});
        }
    }
}

} // namespace wexel::receiver

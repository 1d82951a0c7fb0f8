#include "Transfer/Export.h"

#include "Log.h"
#include "Storage/FileRows.h"
#include "Text.h"
#include "Transfer/AccessRecords.h"
#include "Transfer/Records.h"
#include "Transfer/TarWriter.h"

#include <Poco/DateTimeFormatter.h>
#include <Poco/Timestamp.h>

#include <set>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

class Exporter
{
public:
    Exporter(TarWriter &tar, const FileStore &files) : m_tar(tar), m_files(files) { }

    void addHead(ReportStore &reports)
    {
        const std::int64_t now = currentMilliseconds();
        m_tar.add("manifest.json",
                  "{\"format\":1,\"program\":" + jsonString("wexel-receiver " WEXEL_RECEIVER_VERSION)
                      + ",\"created\":"
                      + jsonString(
                          Poco::DateTimeFormatter::format(Poco::Timestamp(now * 1000), "%Y-%m-%dT%H:%M:%SZ"))
                      + "}\n",
                  now);
        std::string lines;
        for (const ApplicationOverview &application : reports.applications())
            lines += recordText(application);
        m_tar.add("applications.jsonl", lines, now);
    }

    void addReports(Session &session)
    {
        std::vector<std::int64_t> ids;
        session << "SELECT id FROM reports ORDER BY id", into(ids), now;
        for (const std::int64_t id : ids)
            addReport(session, id) ? ++m_result.reports : ++m_result.leftOut;
    }

    ExportResult finish()
    {
        // Whoever reads it knows by this that nothing is missing.
        m_tar.add("end.json", "{\"reports\":" + std::to_string(m_result.reports) + "}\n",
                  currentMilliseconds());
        m_tar.finish();
        return m_result;
    }

private:
    /// The report comes behind its files, so that it is only there with all of them.
    bool addReport(Session &session, std::int64_t id)
    {
        ReportRecord record;
        std::string json;
        session
            << "SELECT received, bundle_id, json FROM reports JOIN report_documents ON report_id = id WHERE "
               "id = $1",
            into(record.received), into(record.bundleId), into(json), bind(id), now;
        record.files = readFilesOf(session, id);
        if (!addFiles(id, record.files))
            return false;
        const std::string folder = "reports/" + std::to_string(id) + '/';
        m_tar.add(folder + "report.json", json, record.received);
        m_tar.add(folder + "about.json", recordText(id, record), record.received);
        return true;
    }

    bool addFiles(std::int64_t reportId, const ReportFiles &files)
    {
        std::vector<StoredFile> all = files.files;
        if (files.screenshot)
            all.push_back(*files.screenshot);
        for (const StoredFile &file : all) {
            if (m_written.contains(file.id))
                continue;
            const auto content = m_files.open(file.location, file.size);
            if (!content || !m_tar.add("files/" + file.id, *content, file.size, file.received)) {
                logEvent("report_left_out", {{"id", std::to_string(reportId)}, {"lost_sha256", file.sha256}});
                return false;
            }
            m_written.insert(file.id);
        }
        return true;
    }

    TarWriter &m_tar;
    const FileStore &m_files;
    std::set<std::string> m_written;
    ExportResult m_result;
};

} // namespace

ExportResult exportTo(const std::string &file, DataFolder &data, ExportScope scope)
{
    TarWriter tar(file);
    Exporter exporter(tar, data.files());
    exporter.addHead(data.reports());
    data.database().readSnapshot([&](Session &session) {
        if (scope == ExportScope::Everything)
            tar.add("access.jsonl", accessText(session), currentMilliseconds());
        exporter.addReports(session);
    });
    return exporter.finish();
}

} // namespace wexel::receiver

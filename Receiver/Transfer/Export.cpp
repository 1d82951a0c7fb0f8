#include "Transfer/Export.h"

#include "Log.h"
#include "Storage/FileRows.h"
#include "Storage/ReportListing.h"
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
    Exporter(TarWriter &tar, DataFolder &data) : m_tar(tar), m_data(data) { }

    void addHead(Session &session)
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
        for (const ApplicationOverview &application : readApplications(session))
            lines += recordText(application);
        m_tar.add("applications.jsonl", lines, now);
    }

    void addReports(Session &session)
    {
        std::vector<std::int64_t> ids;
        session << "SELECT id FROM reports ORDER BY id", into(ids), now;
        for (const std::int64_t id : ids)
            addReport(session, id) ? ++m_result.reports : ++m_result.removed;
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
    /// False if it was removed meanwhile. It comes behind its files, so that it is only there with all of them.
    bool addReport(Session &session, std::int64_t id)
    {
        ReportRecord record;
        std::string json;
        session
            << "SELECT received, bundle_id, json FROM reports JOIN report_documents ON report_id = id WHERE "
               "id = $1",
            into(record.received), into(record.bundleId), into(json), bind(id), now;
        record.files = readFilesOf(session, id);
        if (!addFiles(id, record))
            return false;
        const std::string folder = "reports/" + std::to_string(id) + '/';
        m_tar.add(folder + "report.json", json, record.received);
        m_tar.add(folder + "about.json", recordText(id, record), record.received);
        return true;
    }

    bool addFiles(std::int64_t id, ReportRecord &record)
    {
        std::vector<StoredFile> files = record.files.files;
        if (record.files.screenshot)
            files.push_back(*record.files.screenshot);
        std::set<std::string> written;
        for (const StoredFile &file : files) {
            if (m_written.contains(file.id) || written.contains(file.id))
                continue;
            if (addFile(file))
                written.insert(file.id);
            else if (m_data.reports().report(id)) // a removed one loses its row before its bytes
                noteLost(id, file, record);
            else
                return false;
        }
        // Only now: an importer forgets the files that came before a report which never came.
        m_written.merge(written);
        return true;
    }

    bool addFile(const StoredFile &file)
    {
        const auto content = m_data.files().open(file.location, file.size);
        return content && m_tar.add("files/" + file.id, *content, file.size, file.received);
    }

    void noteLost(std::int64_t id, const StoredFile &file, ReportRecord &record)
    {
        logEvent("file_lost", {{"report", std::to_string(id)}, {"sha256", file.sha256}});
        record.lost.insert(file.id);
        ++m_result.lostFiles;
    }

    TarWriter &m_tar;
    DataFolder &m_data;
    std::set<std::string> m_written; ///< ids of files
    ExportResult m_result;
};

} // namespace

ExportResult exportTo(const std::string &file, DataFolder &data, ExportScope scope)
{
    TarWriter tar(file);
    Exporter exporter(tar, data);
    data.database().readSnapshot([&](Session &session) {
        exporter.addHead(session);
        if (scope == ExportScope::Everything)
            tar.add("access.jsonl", accessText(session), currentMilliseconds());
        exporter.addReports(session);
    });
    return exporter.finish();
}

} // namespace wexel::receiver

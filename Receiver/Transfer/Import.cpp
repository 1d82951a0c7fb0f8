#include "Transfer/Import.h"

#include "ReportDocument.h"
#include "Secrets.h"
#include "Text.h"
#include "Transfer/AccessRecords.h"
#include "Transfer/Records.h"
#include "Transfer/TarReader.h"

#include <Poco/JSON/Parser.h>

#include <map>

namespace wexel::receiver {

namespace {

constexpr std::size_t longestRecord = std::size_t(256) * 1024 * 1024;
constexpr std::size_t longestReport = std::size_t(512) * 1024 * 1024;

struct Received {
    std::string location;
    std::unique_ptr<IncomingFile> file;
};

class Importer
{
public:
    Importer(TarReader &tar, DataFolder &data) : m_tar(tar), m_data(data) { }

    ImportResult run()
    {
        if (m_tar.next() != "manifest.json")
            m_tar.fail("it is no export of wexel-receiver");
        checkManifest(m_tar.readAll(longestRecord));
        for (std::string name = m_tar.next(); !name.empty(); name = m_tar.next())
            take(name);
        if (!m_isWhole)
            m_tar.fail("it ends early; what came before is imported");
        finishApplications();
        return m_result;
    }

private:
    void checkManifest(const std::string &text)
    {
        const auto manifest = Poco::JSON::Parser().parse(text).extract<Poco::JSON::Object::Ptr>();
        if (manifest->getValue<int>("format") != 1)
            m_tar.fail("a newer wexel-receiver wrote it");
    }

    void take(const std::string &name)
    {
        if (name == "applications.jsonl")
            takeApplications(m_tar.readAll(longestRecord));
        else if (name == "access.jsonl")
            takeAccess(m_tar.readAll(longestRecord));
        else if (name.starts_with("files/"))
            takeFile(name.substr(name.find('/') + 1));
        else if (name.ends_with("/report.json"))
            m_json = m_tar.readAll(longestReport);
        else if (name.ends_with("/about.json"))
            takeReport(readReportRecord(m_tar.readAll(longestRecord)));
        else if (name == "end.json")
            m_isWhole = true;
        else
            m_tar.fail("it has an unknown entry");
    }

    void takeApplications(const std::string &text)
    {
        std::map<std::string, bool> known;
        for (const ApplicationOverview &application : m_data.reports().applications())
            known[application.application.bundleId] = true;
        for (const std::string_view line : split(text, '\n')) {
            if (line.empty())
                continue;
            const ApplicationOverview application = readApplicationRecord(std::string(line));
            m_data.reports().registerApplication(application.application);
            if (!known.contains(application.application.bundleId))
                m_newApplications.push_back(application);
        }
    }

    void takeAccess(const std::string &text)
    {
        m_data.database().write([&](Poco::Data::Session &session) { restoreAccess(session, text); });
    }

    void takeFile(const std::string &id)
    {
        if (!isFileId(id))
            m_tar.fail("a file's id is wrong");
        // Not under the id, where bytes may be that are in use.
        Received received = {randomId(), nullptr};
        received.file = m_data.files().receive(received.location);
        m_tar.read([&](std::string_view piece) { received.file->write(piece); });
        m_files.insert_or_assign(id, std::move(received));
    }

    void takeReport(const ReportRecord &record)
    {
        NewReport report = newReport(record.bundleId, std::move(m_json), record.received);
        report.evenIfArchived = true;
        // The record knows which files were the report's own better than their addresses do.
        report.screenshotId = record.files.screenshot ? record.files.screenshot->id : "";
        report.fileIds.clear();
        if (record.files.screenshot)
            publish(*record.files.screenshot);
        for (const StoredFile &file : record.files.files) {
            publish(file);
            report.fileIds.push_back(file.id);
        }
        const bool isNew = m_data.reports().addReport(report)->isNew;
        isNew ? ++m_result.reports : ++m_result.known;
        m_files.clear();
    }

    void publish(StoredFile file)
    {
        const auto incoming = m_files.find(file.id);
        const auto known = m_data.reports().file(file.id);
        if (known || incoming == m_files.end()) {
            if (!known || known->sha256 != file.sha256)
                m_tar.fail("a file is missing");
            return;
        }
        Received &received = incoming->second;
        if (received.file->size() != file.size || received.file->publish() != file.sha256)
            m_tar.fail("a file is damaged");
        file.location = received.location;
        // Old ones without a report would be swept.
        file.received = currentMilliseconds();
        m_data.reports().addFile(file);
    }

    void finishApplications()
    {
        for (const ApplicationOverview &application : m_newApplications) {
            const std::string &bundleId = application.application.bundleId;
            m_data.reports().setRetention(bundleId, application.retention);
            if (application.archived)
                m_data.reports().setArchived(bundleId, true);
        }
    }

    TarReader &m_tar;
    DataFolder &m_data;
    std::vector<ApplicationOverview> m_newApplications;
    std::map<std::string, Received> m_files; ///< by id; of the next report
    std::string m_json; ///< of the next report
    bool m_isWhole = false;
    ImportResult m_result;
};

} // namespace

ImportResult importFrom(const std::string &file, DataFolder &data)
{
    TarReader tar(file);
    try {
        return Importer(tar, data).run();
    } catch (const Poco::Exception &error) {
        tar.fail("a record is wrong: " + error.displayText());
    }
}

} // namespace wexel::receiver

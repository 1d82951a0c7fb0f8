#include "Transfer/Import.h"

#include "Http/HttpError.h"
#include "ReportDocument.h"
#include "Secrets.h"
#include "Storage/FileRows.h"
#include "Text.h"
#include "Transfer/Records.h"

#include <Poco/JSON/Parser.h>

#include <map>
#include <set>

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
    Importer(TarReader &tar, DataFolder &data, ImportResult &result)
        : m_tar(tar)
        , m_data(data)
        , m_result(result)
    {
    }

    void run()
    {
        for (std::string name = m_tar.next(); name != "end.json"; name = m_tar.next())
            take(name);
        checkEnd(m_tar.readAll(longestRecord));
        removeUnneeded();
    }

private:
    void checkEnd(const std::string &text)
    {
        const auto end = Poco::JSON::Parser().parse(text).extract<Poco::JSON::Object::Ptr>();
        if (end->getValue<Poco::Int64>("reports") != m_result.reports + m_result.known + m_result.deleted
            || !m_tar.next().empty())
            m_tar.fail("it does not hold the reports that it says it does");
    }

    void take(const std::string &name)
    {
        if (name.empty())
            m_tar.fail("it ends early");
        else if (name == "applications.jsonl")
            takeApplications(m_tar.readAll(longestRecord));
        else if (name == "access.jsonl")
            takeAccess(m_tar.readAll(longestRecord));
        else if (name.starts_with("files/"))
            takeFile(name.substr(name.find('/') + 1));
        else if (name.ends_with("/report.json"))
            m_json = m_tar.readAll(longestReport);
        else if (name.ends_with("/about.json"))
            takeReport(readReportRecord(m_tar.readAll(longestRecord)));
        else
            m_tar.fail("it has an unknown entry");
    }

    void takeApplications(const std::string &text)
    {
        std::map<std::string, Retention> known;
        for (const ApplicationOverview &application : m_data.reports().applications())
            known.emplace(application.application.bundleId, application.retention);
        for (const std::string_view line : split(text, '\n')) {
            if (line.empty())
                continue;
            const ApplicationOverview application = readApplicationRecord(std::string(line));
            m_data.reports().registerApplication(application.application);
            const auto found = known.find(application.application.bundleId);
            if (found == known.end())
                tell(application);
            // Also if an import before this one brought the limit: it may have been cut off before it could say so.
            const Retention &kept = found == known.end() ? application.retention : found->second;
            m_result.limited += kept.maximumAgeDays || kept.maximumBytes ? 1 : 0;
        }
    }

    /// At once, as for the next import, if this one breaks off, the application is known.
    void tell(const ApplicationOverview &application)
    {
        const std::string &bundleId = application.application.bundleId;
        m_data.reports().setRetention(bundleId, application.retention);
        if (application.archived)
            m_data.reports().setArchived(bundleId, true);
    }

    void takeAccess(const std::string &text)
    {
        const std::vector<Poco::JSON::Object::Ptr> records = readAccess(text);
        m_data.database().write(
            [&](Poco::Data::Session &session) { m_result.access = restoreAccess(session, records); });
    }

    void takeFile(const std::string &id)
    {
        if (!isFileId(id))
            m_tar.fail("a file's id is wrong");
        const auto known = m_data.reports().file(id);
        if (known && m_data.files().open(known->location, known->size))
            return; // it is needed only where the bytes were lost
        // Not under the id, where bytes may be that are in use.
        Received received = {randomId(), nullptr};
        received.file = m_data.files().receive(received.location);
        m_tar.read([&](std::string_view piece) { received.file->write(piece); });
        m_files.insert_or_assign(id, std::move(received));
    }

    void takeReport(const ReportRecord &record)
    {
        NewReport report = newReport(record.bundleId, std::move(m_json), record.received);
        report.isImported = true;
        // The record knows which files were the report's own better than their addresses do.
        report.screenshotId = record.files.screenshot ? record.files.screenshot->id : "";
        report.fileIds.clear();
        if (record.files.screenshot)
            publish(*record.files.screenshot, record);
        for (const StoredFile &file : record.files.files) {
            publish(file, record);
            report.fileIds.push_back(file.id);
        }
        const AddedReport added = m_data.reports().addReport(report).value();
        ++(added.isNew                             ? m_result.reports
               : m_data.reports().report(added.id) ? m_result.known
                                                   : m_result.deleted);
        if (!added.isNew)
            m_unneeded.insert(m_unneeded.end(), m_added.begin(), m_added.end());
        m_added.clear();
        m_files.clear();
    }

    void publish(StoredFile file, const ReportRecord &record)
    {
        const auto known = m_data.reports().file(file.id);
        if (known && known->sha256 != file.sha256)
            m_tar.fail("another file has the id of one in it");
        const bool isLost = record.lost.contains(file.id);
        const bool hasCome = !isLost && m_files.contains(file.id);
        if (!known && !hasCome && !isLost)
            m_tar.fail("a file is missing");
        file.location = hasCome ? publishBytes(file) : randomId();
        if (!known)
            add(file);
        else if (hasCome)
            m_data.database().write(
                [&](Poco::Data::Session &session) { moveFile(session, file.id, file.location); });
    }

    /// Returns where they are.
    std::string publishBytes(const StoredFile &file)
    {
        const Received received = std::move(m_files.extract(file.id).mapped());
        if (received.file->size() != file.size || received.file->publish() != file.sha256)
            m_tar.fail("a file is damaged");
        return received.location;
    }

    void add(StoredFile file)
    {
        // Old ones without a report would be swept.
        file.received = currentMilliseconds();
        m_data.reports().addFile(file);
        m_added.push_back(file.id);
    }

    /// Files of reports that were known. They stay until here, as a later report may name them, too.
    void removeUnneeded()
    {
        std::vector<std::string> locations;
        m_data.database().write(
            [&](Poco::Data::Session &session) { locations = removeUnnamedFiles(session, m_unneeded); });
        for (const std::string &location : locations)
            m_data.files().remove(location);
    }

    TarReader &m_tar;
    DataFolder &m_data;
    std::map<std::string, Received> m_files; ///< by id; of the next report
    std::string m_json; ///< of the next report
    std::vector<std::string> m_added; ///< the ids of the files that came with the next report
    std::vector<std::string> m_unneeded; ///< the ids of those that may have come in vain
    ImportResult &m_result;
};

/// Runs \a read with what the records' reader throws turned into a text for the user.
void explained(const TarReader &tar, const std::function<void()> &read)
{
    try {
        read();
    } catch (const Poco::Exception &error) {
        tar.fail("a record is wrong: " + error.displayText());
    } catch (const HttpError &error) {
        tar.fail(std::string("a record is wrong: ") + error.what());
    }
}

} // namespace

void readManifest(TarReader &tar)
{
    if (tar.next() != "manifest.json")
        tar.fail("it is no export of wexel-receiver");
    explained(tar, [&] {
        const auto manifest
            = Poco::JSON::Parser().parse(tar.readAll(longestRecord)).extract<Poco::JSON::Object::Ptr>();
        if (manifest->getValue<int>("format") != 1)
            tar.fail("a newer wexel-receiver wrote it");
    });
}

void importFrom(TarReader &tar, DataFolder &data, ImportResult &result)
{
    explained(tar, [&] { Importer(tar, data, result).run(); });
}

} // namespace wexel::receiver

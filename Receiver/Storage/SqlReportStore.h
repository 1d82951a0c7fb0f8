#pragma once

#include "Storage/Database.h"
#include "Storage/FileStore.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// The report store in a database; the bytes of files go with their rows. Both must outlive it.
class SqlReportStore : public ReportStore
{
public:
    SqlReportStore(Database &database, FileStore &files) : m_database(database), m_files(files) { }

    void registerApplication(const Application &application) override;
    bool isArchived(const std::string &bundleId) override;
    bool setArchived(const std::string &bundleId, bool archived) override;
    void addFile(const StoredFile &file) override;
    std::optional<StoredFile> file(const std::string &id) override;
    std::size_t removeUnreportedFiles(std::int64_t before) override;
    std::vector<std::string> unknownLocations(const std::vector<std::string> &locations) override;
    std::optional<AddedReport> addReport(const NewReport &report) override;
    std::vector<ReportSummary> reports() override;
    std::optional<std::string> reportJson(std::int64_t id) override;
    ReportFiles filesOf(std::int64_t reportId) override;
    ReportPage page(const ReportQuery &query) override;
    Filters filters(const std::string &bundleId) override;
    std::optional<ReportRow> report(std::int64_t id) override;
    std::vector<ApplicationOverview> applications() override;
    bool setRetention(const std::string &bundleId, const Retention &retention) override;
    bool removeReport(std::int64_t id) override;
    std::vector<ExpiredReport> reportsBeyondRetention(std::int64_t now, std::size_t most) override;
    void removeExpired(const std::vector<ExpiredReport> &reports,
                       const std::function<void(const ExpiredReport &)> &removed) override;

private:
    bool removeWithBytes(std::int64_t reportId);
    void removeBytes(const std::vector<std::string> &locations);

    Database &m_database;
    FileStore &m_files;
};

} // namespace wexel::receiver

#pragma once

#include "Storage/Database.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// The report store in the data folder's database. The database must outlive it.
class SqlReportStore : public ReportStore
{
public:
    explicit SqlReportStore(Database &database) : m_database(database) { }

    void registerApplication(const Application &application) override;
    bool isArchived(const std::string &bundleId) override;
    bool setArchived(const std::string &bundleId, bool archived) override;
    void addFile(const StoredFile &file) override;
    std::optional<StoredFile> file(const std::string &id) override;
    std::size_t removeUnreportedFiles(std::int64_t before) override;
    std::set<std::string> fileContents() override;
    std::optional<std::int64_t> addReport(const NewReport &report) override;
    std::vector<ReportSummary> reports() override;
    std::optional<std::string> reportJson(std::int64_t id) override;
    ReportFiles filesOf(std::int64_t reportId) override;
    ReportPage page(const ReportQuery &query) override;
    Filters filters(const std::string &bundleId) override;
    std::optional<ReportRow> report(std::int64_t id) override;
    std::vector<ApplicationOverview> applications() override;
    bool setRetention(const std::string &bundleId, const Retention &retention) override;
    bool removeReport(std::int64_t id) override;

private:
    Database &m_database;
};

} // namespace wexel::receiver

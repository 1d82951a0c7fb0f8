#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace wexel::receiver {

/// A file that was uploaded. Its id is unguessable: it is the address's secret part.
struct StoredFile {
    std::string id;
    std::string sha256;
    std::string name; ///< as the client gave it, made printable; never a path
    std::string contentType;
    std::uint64_t size = 0;
    std::int64_t received = 0; ///< milliseconds since 1970
    std::string location = {}; ///< of its bytes in the FileStore
};

/// What the list shows of a report's JSON; empty where it says nothing.
struct ReportFacts {
    std::string description;
    std::string tester; ///< e-mail address
    std::string device;
    std::string os;
    std::string osVersion;
    std::string appVersion;
};

struct NewReport {
    std::string bundleId;
    std::string json; ///< the report, valid JSON
    std::string screenshotId; ///< may be empty or unknown
    std::vector<std::string> fileIds; ///< unknown ones are left out
    std::int64_t received = 0;
    ReportFacts facts = {};
    std::string digest = {}; ///< of the JSON without the addresses of files
    /// It is taken even if its application is archived. Its files must be known, and stay if it was taken before.
    bool isImported = false;
};

struct AddedReport {
    std::int64_t id = 0;
    bool isNew = true; ///< false: it was taken before under this id, whether it is still there or not
};

/// A report that is not to be kept longer.
struct ExpiredReport {
    std::int64_t id = 0;
    std::string bundleId;
    std::int64_t received = 0; ///< milliseconds since 1970
    std::int64_t bytes = 0; ///< of JSON and files together
};

struct ReportSummary {
    std::int64_t id = 0;
    std::int64_t received = 0; ///< milliseconds since 1970
    std::string bundleId;
};

struct ReportFiles {
    std::optional<StoredFile> screenshot;
    std::vector<StoredFile> files; ///< in the report's order
};

struct Application {
    std::string bundleId;
    std::string os;
    std::string platform;
};

/// What is kept of an application's reports; without a limit, all.
struct Retention {
    std::optional<std::int64_t> maximumAgeDays;
    std::optional<std::int64_t> maximumBytes; ///< of JSON and files together
};

/// An application as the dashboard lists it.
struct ApplicationOverview {
    Application application;
    bool archived = false;
    std::int64_t reports = 0;
    std::int64_t bytes = 0;
    std::optional<std::int64_t> lastReceived; ///< milliseconds since 1970
    Retention retention;
};

/// A report as the dashboard lists it.
struct ReportRow {
    std::int64_t id = 0;
    std::int64_t received = 0; ///< milliseconds since 1970
    std::string bundleId;
    std::string summary; ///< the first line of the description, cut
    std::string tester; ///< e-mail address
    std::string device;
    std::string osVersion; ///< behind the system's name, where the report has one
    std::string appVersion;
    bool hasScreenshot = false;
    std::int64_t files = 0; ///< attached ones
};

/// Which reports, and in which order. Empty texts and absent times do not restrict.
struct ReportQuery {
    enum class Sort { Received, BundleId, Tester, Device, AppVersion };

    std::string search = {}; ///< somewhere in description, tester, device, version or bundle id, in any case
    std::string bundleId = {};
    std::string appVersion = {};
    std::string device = {};
    std::optional<std::int64_t> from = {}; ///< milliseconds since 1970, inclusive
    std::optional<std::int64_t> to = {}; ///< exclusive
    Sort sort = Sort::Received;
    bool isDescending = true;
    std::int64_t page = 1; ///< the first is 1
    std::int64_t size = 50;
};

struct ReportPage {
    std::vector<ReportRow> rows;
    std::int64_t total = 0; ///< of all pages
    std::int64_t newest = 0; ///< the largest id of all reports, whatever the query; 0 without any
};

/// What the list can be narrowed down to; the most frequent first.
struct Filters {
    std::vector<std::string> versions;
    std::vector<std::string> devices;
};

/// What arrived. Writing functions return once the data survives a crash of the program and of the machine. Every thread
/// may call everything. All throw StorageError.
class ReportStore
{
public:
    virtual ~ReportStore() = default;

    /// A known application keeps its state.
    virtual void registerApplication(const Application &application) = 0;
    /// False for an unknown application. Changes by other processes are seen at once.
    virtual bool isArchived(const std::string &bundleId) = 0;
    /// Registers the application if it is unknown. Returns whether it was known.
    virtual bool setArchived(const std::string &bundleId, bool archived) = 0;

    virtual void addFile(const StoredFile &file) = 0;
    virtual std::optional<StoredFile> file(const std::string &id) = 0;
    /// Removes the files that arrived before \a before (milliseconds since 1970) and that no report names. Returns how many.
    virtual std::size_t removeUnreportedFiles(std::int64_t before) = 0;
    /// Of \a locations, those that no file has.
    virtual std::vector<std::string> unknownLocations(const std::vector<std::string> &locations) = 0;

    /// Registers the application if it is unknown. Returns nothing if the application is archived. A report that was taken
    /// before, the addresses of its files aside, is not stored again, and the files that came with it now are removed (see
    /// NewReport::isImported).
    virtual std::optional<AddedReport> addReport(const NewReport &report) = 0;
    /// Oldest first.
    virtual std::vector<ReportSummary> reports() = 0;
    virtual std::optional<std::string> reportJson(std::int64_t id) = 0;
    virtual ReportFiles filesOf(std::int64_t reportId) = 0;

    // For the dashboard.
    virtual ReportPage page(const ReportQuery &query) = 0;
    virtual Filters filters(const std::string &bundleId) = 0; ///< of one application, or of all
    virtual std::optional<ReportRow> report(std::int64_t id) = 0;
    virtual std::vector<ApplicationOverview> applications() = 0;
    /// False for an unknown application.
    virtual bool setRetention(const std::string &bundleId, const Retention &retention) = 0;
    /// Removes the report, its files and their bytes for good. False if there is none.
    virtual bool removeReport(std::int64_t id) = 0;
    /// The reports that are beyond the retention of their applications at \a now (milliseconds since 1970), the \a most that
    /// came first.
    virtual std::vector<ExpiredReport> reportsBeyondRetention(std::int64_t now, std::size_t most) = 0;
    /// Removes those of \a reports that are still there, and calls \a removed after each.
    virtual void removeExpired(const std::vector<ExpiredReport> &reports,
                               const std::function<void(const ExpiredReport &)> &removed)
        = 0;
};

} // namespace wexel::receiver

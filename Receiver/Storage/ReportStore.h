#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
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
};

struct NewReport {
    std::string bundleId;
    std::string json; ///< the report, valid JSON
    std::string screenshotId; ///< may be empty or unknown
    std::vector<std::string> fileIds; ///< unknown ones are left out
    std::int64_t received = 0;
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
    /// Forgets the files that arrived before \a before (milliseconds since 1970) and that no report names. Returns how many.
    virtual std::size_t removeUnreportedFiles(std::int64_t before) = 0;
    /// The SHA-256 of every file that is known.
    virtual std::set<std::string> fileContents() = 0;

    /// Registers the application if it is unknown. Returns the report's id, or nothing if the application is archived.
    virtual std::optional<std::int64_t> addReport(const NewReport &report) = 0;
    /// Oldest first.
    virtual std::vector<ReportSummary> reports() = 0;
    virtual std::optional<std::string> reportJson(std::int64_t id) = 0;
    virtual ReportFiles filesOf(std::int64_t reportId) = 0;
};

} // namespace wexel::receiver

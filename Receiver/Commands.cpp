#include "Commands.h"

#include "Log.h"
#include "Storage/DataFolder.h"
#include "Text.h"

#include <Poco/DateTimeFormatter.h>
#include <Poco/Timestamp.h>

#include <algorithm>
#include <iomanip>
#include <iostream>

namespace wexel::receiver {

namespace {

std::string isoTime(std::int64_t milliseconds)
{
    return Poco::DateTimeFormatter::format(Poco::Timestamp(milliseconds * 1000), "%Y-%m-%dT%H:%M:%S.%iZ");
}

std::string fileJson(const StoredFile &file, const FileStore &files)
{
    const std::filesystem::path path = files.pathOf(file.location);
    return "{\"id\":" + jsonString(file.id) + ",\"name\":" + jsonString(file.name)
        + ",\"size\":" + std::to_string(file.size) + ",\"content_type\":" + jsonString(file.contentType)
        + ",\"sha256\":" + jsonString(file.sha256)
        + ",\"path\":" + (path.empty() ? "null" : jsonString(absolute(path).string())) + "}";
}

void printJson(const ReportSummary &report, DataFolder &data)
{
    const ReportFiles files = data.reports().filesOf(report.id);
    std::cout << "{\"id\":" << report.id << ",\"received\":" << jsonString(isoTime(report.received))
              << ",\"bundle_id\":" << jsonString(report.bundleId)
              << ",\"screenshot\":" << (files.screenshot ? fileJson(*files.screenshot, data.files()) : "null")
              << ",\"files\":[";
    const char *separator = "";
    for (const StoredFile &file : files.files) {
        std::cout << separator << fileJson(file, data.files());
        separator = ",";
    }
    // What was stored was checked to be one JSON object.
    std::cout << "],\"report\":" << data.reports().reportJson(report.id).value_or("null") << "}";
}

void printAllJson(DataFolder &data)
{
    std::cout << '[';
    const char *separator = "\n";
    for (const ReportSummary &report : data.reports().reports()) {
        std::cout << separator;
        printJson(report, data);
        separator = ",\n";
    }
    std::cout << "\n]\n";
}

void printTable(DataFolder &data)
{
    std::cout << std::left << std::setw(8) << "ID" << std::setw(26) << "RECEIVED" << std::setw(12)
              << "SCREENSHOT" << std::setw(7) << "FILES"
              << "BUNDLE ID\n";
    for (const ReportSummary &report : data.reports().reports()) {
        const ReportFiles files = data.reports().filesOf(report.id);
        std::cout << std::setw(8) << report.id << std::setw(26) << isoTime(report.received) << std::setw(12)
                  << (files.screenshot ? std::to_string(files.screenshot->size) : "-") << std::setw(7)
                  << files.files.size() << escaped(report.bundleId) << '\n';
    }
}

bool isKnown(const std::string &bundleId, DataFolder &data)
{
    const std::vector<ApplicationOverview> known = data.reports().applications();
    return std::any_of(known.begin(), known.end(),
                       [&](const auto &overview) { return overview.application.bundleId == bundleId; });
}

} // namespace

int listReports(const Options &options)
{
    DataFolder data(options.place, DataFolder::Access::Read);
    options.json ? printAllJson(data) : printTable(data);
    return std::cout.flush() ? 0 : 1;
}

int setArchived(const Options &options, bool archived)
{
    DataFolder data(options.place, DataFolder::Access::Change);
    // To archive one that is not known keeps its reports out before the first; to allow it again means a wrong name.
    if (!archived && !isKnown(options.bundleId, data))
        throw std::runtime_error(escaped(options.bundleId) + " is not known");
    const bool known = data.reports().setArchived(options.bundleId, archived);
    std::cout << escaped(options.bundleId) << (archived ? " is archived" : " may send reports")
              << (known ? "" : " (it was not known before)") << '\n';
    return 0;
}

} // namespace wexel::receiver

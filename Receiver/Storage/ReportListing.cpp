#include "Storage/ReportListing.h"

#include "ReportDocument.h"
#include "Storage/ReportDigest.h"
#include "Text.h"

#include <Poco/String.h>
#include <Poco/UTF8String.h>

#include <algorithm>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

constexpr std::size_t summaryLength = 201; // characters: one more than the list shows, for its "…"
constexpr std::size_t factLength = 250; // characters; longer ones don't fit an index
constexpr std::size_t storedSearchSize = 4000; // bytes

bool isInsideCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0) == 0x80;
}

/// At most \a size bytes, whole characters only.
std::string cut(const std::string &text, std::size_t size)
{
    while (size > 0 && size < text.size() && isInsideCharacter(text[size]))
        --size;
    return text.substr(0, size);
}

/// At most \a length characters.
std::string shortened(const std::string &text, std::size_t length)
{
    std::size_t size = 0;
    while (size < text.size() && (isInsideCharacter(text[size]) || length-- > 0))
        ++size;
    return storable(text.substr(0, size));
}

std::string firstLine(const std::string &text)
{
    const std::string trimmed = Poco::trim(text);
    return trimmed.substr(0, trimmed.find_first_of("\r\n"));
}

/// What a version that looked less closely took may not be readable.
NewReport readLeniently(const std::string &bundleId, const std::string &json)
{
    try {
        return newReport(bundleId, json, 0);
    } catch (const std::exception &) {
        return {bundleId, json, "", {}};
    }
}

void describeStored(Session &session, std::int64_t id)
{
    std::string json;
    std::string bundleId;
    session << "SELECT bundle_id, json FROM reports JOIN report_documents ON report_id = id WHERE id = $1",
        into(bundleId), into(json), bind(id), now;
    const NewReport report = readLeniently(bundleId, json);
    describe(session, id, bundleId, report.facts, json.size());
    const ReportDigest digest(session, report, ReportDigest::ofText(report));
    if (!digest.find(session))
        digest.insert(session, id);
}

} // namespace

std::string searchText(const std::string &text, std::size_t size)
{
    return cut(Poco::UTF8::toLower(cut(storable(text), size)), size);
}

void describe(Session &session, std::int64_t id, const std::string &bundleId, const ReportFacts &facts,
              std::size_t jsonSize)
{
    // The long one last, so that it alone is cut.
    const std::string search = facts.tester + '\n' + facts.device + '\n' + facts.appVersion + '\n' + bundleId
        + '\n' + facts.description;
    session
        << "UPDATE reports SET summary = $1, tester = $2, device = $3, os_version = $4, app_version = $5, "
           "search = $6, bytes = $7 + (SELECT coalesce(sum(size), 0) FROM report_files JOIN files "
           "ON files.id = file_id WHERE report_id = reports.id) WHERE id = $8",
        bind(shortened(firstLine(facts.description), summaryLength)),
        bind(shortened(facts.tester, factLength)), bind(shortened(facts.device, factLength)),
        bind(shortened(Poco::trim(facts.os + ' ' + facts.osVersion), factLength)),
        bind(shortened(facts.appVersion, factLength)), bind(searchText(search, storedSearchSize)),
        bind(static_cast<std::int64_t>(jsonSize)), bind(id), now;
}

void describeReports(Session &session)
{
    std::vector<std::int64_t> ids;
    session << "SELECT id FROM reports ORDER BY id", into(ids), now;
    for (const std::int64_t id : ids)
        describeStored(session, id);
}

} // namespace wexel::receiver

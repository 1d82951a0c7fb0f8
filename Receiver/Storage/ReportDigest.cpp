#include "Storage/ReportDigest.h"

#include "Secrets.h"

#include <Poco/Crypto/DigestEngine.h>

#include <algorithm>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

/// Empty for a file that is not ours.
std::string contentOf(Session &session, const std::string &fileId)
{
    std::string sha256;
    session << "SELECT sha256 FROM files WHERE id = $1", bind(fileId), into(sha256), now;
    return sha256;
}

std::string contentDigest(Session &session, const NewReport &report)
{
    std::vector<std::string> contents;
    for (const std::string &id : report.fileIds)
        contents.push_back(contentOf(session, id));
    std::erase(contents, ""); // an import does not know of them
    // The library names attached files in the order in which their uploads end.
    std::sort(contents.begin(), contents.end());
    std::string text = "content\n" + report.bundleId + '\n' + report.digest + '\n'
        + contentOf(session, report.screenshotId);
    for (const std::string &content : contents)
        text += '\n' + content;
    return sha256(text);
}

} // namespace

std::string ReportDigest::ofText(const NewReport &report)
{
    Poco::Crypto::DigestEngine engine("SHA256");
    engine.update("text\n" + report.bundleId + '\n');
    engine.update(report.json);
    return Poco::DigestEngine::digestToHex(engine.digest());
}

ReportDigest::ReportDigest(Session &session, const NewReport &report, const std::string &ofText)
    : m_text(ofText)
    , m_content(contentDigest(session, report))
{
}

std::optional<std::int64_t> ReportDigest::find(Session &session) const
{
    std::vector<std::int64_t> ids;
    session << "SELECT report_id FROM report_digests WHERE digest IN ($1, $2)", bind(m_text), bind(m_content),
        into(ids), now;
    return ids.empty() ? std::nullopt : std::optional(ids.front());
}

void ReportDigest::insert(Session &session, std::int64_t reportId) const
{
    session << "INSERT INTO report_digests (digest, report_id) VALUES ($1, $2)", bind(m_content),
        bind(reportId), now;
    insertText(session, reportId);
}

void ReportDigest::insertText(Session &session, std::int64_t reportId) const
{
    session << "INSERT INTO report_digests (digest, report_id) VALUES ($1, $2) ON CONFLICT DO NOTHING",
        bind(m_text), bind(reportId), now;
}

} // namespace wexel::receiver

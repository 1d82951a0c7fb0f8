#include "ReportDocument.h"

#include "Http/HttpError.h"
#include "JsonDigest.h"
#include "Text.h"

#include <Poco/JSON/Handler.h>
#include <Poco/JSON/JSONException.h>
#include <Poco/JSON/Parser.h>

#include <map>

namespace wexel::receiver {

namespace {

[[noreturn]] void failReport(const std::string &text)
{
    throw HttpError(Status::HTTP_BAD_REQUEST, text);
}

/// Follows the parser by depth: 1 is inside the report, 3 is inside an object of one of its arrays.
class DocumentReader : public Poco::JSON::Handler
{
public:
    bool isObject = false; ///< the outermost value is one

    ReportDocument take()
    {
        m_document.digest = m_digest.take();
        return std::move(m_document);
    }

    void reset() override { }
    void startObject() override
    {
        isObject = isObject || m_depth == 0;
        ++m_depth;
        m_digest.openObject();
    }
    void endObject() override { leave(); }
    void startArray() override
    {
        ++m_depth;
        m_digest.openArray();
    }
    void endArray() override { leave(); }
    void key(const std::string &key) override
    {
        (m_depth == 1 ? m_outerKey : m_innerKey) = key;
        m_digest.key(key);
    }
    void value(const std::string &text) override
    {
        if (m_depth == 1 && m_outerKey == "screenshot_url")
            m_document.screenshotUrl = text;
        else if (m_depth == 3 && m_outerKey == "files" && m_innerKey == "url")
            m_document.fileUrls.push_back(text);
        else
            addText(text);
    }
    void null() override { m_digest.value('0', {}); }
    void value(int number) override { m_digest.value('n', std::to_string(number)); }
    void value(unsigned number) override { m_digest.value('n', std::to_string(number)); }
    void value(Poco::Int64 number) override { m_digest.value('n', std::to_string(number)); }
    void value(Poco::UInt64 number) override { m_digest.value('n', std::to_string(number)); }
    void value(double number) override
    {
        m_digest.value('d', {reinterpret_cast<const char *>(&number), sizeof number});
    }
    void value(bool truth) override { m_digest.value('b', truth ? "1" : "0"); }

private:
    void leave()
    {
        --m_depth;
        m_digest.close();
    }
    void addText(const std::string &text)
    {
        m_digest.value('s', text);
        const auto fact = facts.find(m_depth == 1 ? m_outerKey : std::string());
        if (fact != facts.end())
            m_document.facts.*fact->second = text;
    }

    static inline const std::map<std::string, std::string ReportFacts::*> facts
        = {{"description", &ReportFacts::description}, {"tester_email", &ReportFacts::tester},
           {"device", &ReportFacts::device},           {"os", &ReportFacts::os},
           {"os_version", &ReportFacts::osVersion},    {"app_version", &ReportFacts::appVersion}};

    ReportDocument m_document;
    JsonDigest m_digest;
    int m_depth = 0;
    std::string m_outerKey;
    std::string m_innerKey;
};

/// The id in the address of one of our files: its last segment. Empty if it can't be one, whatever else it says.
std::string fileId(const std::string &address)
{
    const std::string id = address.substr(address.rfind('/') + 1);
    return isId(id) ? id : std::string();
}

} // namespace

ReportDocument readReportDocument(const std::string &json)
{
    Poco::SharedPtr<DocumentReader> reader = new DocumentReader;
    try {
        Poco::JSON::Parser parser(reader);
        parser.parse(json);
    } catch (const Poco::Exception &error) {
        failReport("The report is not valid JSON: " + error.message());
    }
    if (!reader->isObject)
        failReport("The report must be a JSON object");
    // The parser lets some of it pass, and not every database takes it.
    if (json.find('\0') != json.npos || !isUtf8(json))
        failReport("The report is not UTF-8 text");
    return reader->take();
}

NewReport newReport(const std::string &bundleId, std::string json, std::int64_t received)
{
    const ReportDocument document = readReportDocument(json);
    NewReport report = {bundleId,       std::move(json), fileId(document.screenshotUrl), {}, received,
                        document.facts, document.digest};
    for (const std::string &address : document.fileUrls)
        report.fileIds.push_back(fileId(address));
    return report;
}

} // namespace wexel::receiver

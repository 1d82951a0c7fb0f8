#include "ReportDocument.h"

#include "Http/HttpError.h"

#include <Poco/JSON/Handler.h>
#include <Poco/JSON/JSONException.h>
#include <Poco/JSON/Parser.h>

namespace wexel::receiver {

namespace {

[[noreturn]] void fail(const std::string &text)
{
    throw HttpError(Status::HTTP_BAD_REQUEST, text);
}

/// Follows the parser by depth: 1 is inside the report, 3 is inside an object of one of its arrays.
class AddressPicker : public Poco::JSON::Handler
{
public:
    ReportDocument document;
    bool isObject = false; ///< the outermost value is one

    void reset() override { }
    void startObject() override
    {
        isObject = isObject || m_depth == 0;
        ++m_depth;
    }
    void endObject() override { --m_depth; }
    void startArray() override { ++m_depth; }
    void endArray() override { --m_depth; }
    void key(const std::string &key) override { (m_depth == 1 ? m_outerKey : m_innerKey) = key; }
    void value(const std::string &text) override
    {
        if (m_depth == 1 && m_outerKey == "screenshot_url")
            document.screenshotUrl = text;
        else if (m_depth == 3 && m_outerKey == "files" && m_innerKey == "url")
            document.fileUrls.push_back(text);
    }
    void null() override { }
    void value(int) override { }
    void value(unsigned) override { }
    void value(Poco::Int64) override { }
    void value(Poco::UInt64) override { }
    void value(double) override { }
    void value(bool) override { }

private:
    int m_depth = 0;
    std::string m_outerKey;
    std::string m_innerKey;
};

} // namespace

ReportDocument readReportDocument(const std::string &json)
{
    const Poco::SharedPtr<AddressPicker> picker = new AddressPicker;
    try {
        Poco::JSON::Parser parser(picker);
        parser.parse(json);
    } catch (const Poco::Exception &error) {
        fail("The report is not valid JSON: " + error.message());
    }
    if (!picker->isObject)
        fail("The report must be a JSON object");
    return picker->document;
}

} // namespace wexel::receiver

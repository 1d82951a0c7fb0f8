#include "Handlers/ApplicationsHandler.h"

#include "BundleId.h"

#include <Poco/JSON/Object.h>
#include <Poco/JSON/Parser.h>

namespace wexel::receiver {

namespace {

using Poco::JSON::Object;

constexpr std::uint64_t maximumApplicationSize = 64 * 1024;
constexpr std::size_t maximumTextLength = 100;

Object::Ptr parseObject(const std::string &text)
{
    try {
        return Poco::JSON::Parser().parse(text).extract<Object::Ptr>();
    } catch (const Poco::Exception &) {
        throw HttpError(
            Status::HTTP_BAD_REQUEST,
            R"(Expected a JSON object such as {"bundle_id": "org.example.app", "os": "iOS", "platform": "iOS"})");
    }
}

std::string textAt(const Object &object, const std::string &key, std::size_t longest)
{
    const Poco::Dynamic::Var value = object.get(key);
    if (!value.isString() || value.extract<std::string>().size() > longest)
        throw HttpError(Status::HTTP_BAD_REQUEST,
                        "Expected under \"" + key + "\" a text of at most " + std::to_string(longest)
                            + " bytes");
    return value.extract<std::string>();
}

bool isCheck(const Object &object)
{
    const Poco::Dynamic::Var value = object.get("check_archived");
    if (!value.isEmpty() && !value.isBoolean())
        throw HttpError(Status::HTTP_BAD_REQUEST, "Expected true or false under \"check_archived\"");
    return !value.isEmpty() && value.extract<bool>();
}

} // namespace

Answer ApplicationsHandler::handle(Request &request)
{
    const Object::Ptr object = parseObject(request.body.readAll(maximumApplicationSize, "The application"));
    const Application application
        = {textAt(*object, "bundle_id", maximumApplicationSize), textAt(*object, "os", maximumTextLength),
           textAt(*object, "platform", maximumTextLength)};
    if (const std::string fault = bundleIdFault(application.bundleId); !fault.empty())
        throw HttpError(Status::HTTP_BAD_REQUEST, fault);
    if (!request.caller.mayReportFor(application.bundleId))
        throw HttpError(Status::HTTP_FORBIDDEN, "The client may not report for this application");
    if (!isCheck(*object))
        m_store.registerApplication(application);
    else if (m_store.isArchived(application.bundleId))
        throw HttpError(Status::HTTP_NOT_FOUND, "The application is archived");
    return jsonAnswer("{\"bundle_id\":" + jsonString(application.bundleId) + "}");
}

} // namespace wexel::receiver

#include "Http/JsonBody.h"

#include <Poco/JSON/Parser.h>
#include <Poco/String.h>

namespace wexel::receiver {

namespace {

constexpr std::uint64_t maximumJsonSize = 64 * 1024;

} // namespace

Poco::JSON::Object::Ptr readJsonBody(Request &request)
{
    const std::string type = Poco::toLower(request.header.getContentType());
    if (Poco::trim(type.substr(0, type.find(';'))) != "application/json")
        throw HttpError(Status::HTTP_UNSUPPORTED_MEDIA_TYPE, "The Content-Type must be application/json");
    const std::string text = request.body.readAll(maximumJsonSize, "The body");
    try {
        return Poco::JSON::Parser().parse(text).extract<Poco::JSON::Object::Ptr>();
    } catch (const Poco::Exception &) {
        throw HttpError(Status::HTTP_BAD_REQUEST, "Expected a JSON object");
    }
}

std::string textIn(const Poco::JSON::Object &object, const std::string &key)
{
    const Poco::Dynamic::Var value = object.get(key);
    if (!value.isString())
        throw HttpError(Status::HTTP_BAD_REQUEST, "Expected a text under \"" + key + "\"");
    return value.extract<std::string>();
}

} // namespace wexel::receiver

#include "Handlers/Dashboard/RetentionHandler.h"

#include "Log.h"

#include <Poco/JSON/Object.h>
#include <Poco/JSON/Parser.h>

namespace wexel::receiver {

namespace {

using Poco::JSON::Object;

constexpr std::uint64_t maximumBodySize = 4096;
constexpr std::int64_t maximumDays = 36500;
constexpr std::int64_t maximumBytes = std::int64_t(1) << 53; // the largest that JavaScript counts exactly

[[noreturn]] void fail(const std::string &text)
{
    throw HttpError(Status::HTTP_BAD_REQUEST, text);
}

std::optional<std::int64_t> limitAt(const Object &object, const std::string &key, std::int64_t largest)
{
    const Poco::Dynamic::Var value = object.get(key);
    if (value.isEmpty() && object.has(key))
        return std::nullopt;
    // What does not fit into 64 bits with a sign arrives as unsigned, or as a real number.
    const bool fits = value.isInteger() && value.isSigned();
    const std::int64_t limit = fits ? value.convert<std::int64_t>() : 0;
    if (limit < 1 || limit > largest)
        fail("Expected under \"" + key + "\" null or a number from 1 to " + std::to_string(largest));
    return limit;
}

Retention parse(const std::string &text)
{
    Object::Ptr object;
    try {
        object = Poco::JSON::Parser().parse(text).extract<Object::Ptr>();
    } catch (const Poco::Exception &) {
        fail(R"(Expected a JSON object such as {"max_age_days": 90, "max_bytes": null})");
    }
    return {limitAt(*object, "max_age_days", maximumDays), limitAt(*object, "max_bytes", maximumBytes)};
}

std::string shown(const std::optional<std::int64_t> &limit)
{
    return limit ? std::to_string(*limit) : "none";
}

} // namespace

Answer RetentionHandler::handle(Request &request)
{
    const Retention retention = parse(request.body.readAll(maximumBodySize, "The retention"));
    if (!m_store.setRetention(request.parameter, retention))
        throw HttpError(Status::HTTP_NOT_FOUND, "There is no such application");
    logEvent("retention_set",
             {{"bundle_id", request.parameter},
              {"max_age_days", shown(retention.maximumAgeDays)},
              {"max_bytes", shown(retention.maximumBytes)}});
    return {.status = Status::HTTP_NO_CONTENT};
}

} // namespace wexel::receiver

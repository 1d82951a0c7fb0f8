#include "Handlers/Dashboard/RetentionHandler.h"

#include "BundleId.h"
#include "Http/JsonBody.h"
#include "Log.h"

namespace wexel::receiver {

namespace {

using Poco::JSON::Object;

constexpr std::int64_t maximumDays = 36500;
constexpr std::int64_t maximumBytes = std::int64_t(1) << 53; // the largest that JavaScript counts exactly

std::optional<std::int64_t> limitAt(const Object &object, const std::string &key, std::int64_t largest)
{
    const Poco::Dynamic::Var value = object.get(key);
    if (value.isEmpty() && object.has(key))
        return std::nullopt;
    // What does not fit into 64 bits with a sign arrives as unsigned, or as a real number.
    const bool fits = value.isInteger() && value.isSigned();
    const std::int64_t limit = fits ? value.convert<std::int64_t>() : 0;
    if (limit < 1 || limit > largest)
        throw HttpError(Status::HTTP_BAD_REQUEST,
                        "Expected under \"" + key + "\" null or a number from 1 to "
                            + std::to_string(largest));
    return limit;
}

std::string shown(const std::optional<std::int64_t> &limit)
{
    return limit ? std::to_string(*limit) : "none";
}

} // namespace

Answer RetentionHandler::handle(Request &request)
{
    const Object::Ptr body = readJsonBody(request);
    const Retention retention
        = {limitAt(*body, "max_age_days", maximumDays), limitAt(*body, "max_bytes", maximumBytes)};
    if (!bundleIdFault(request.parameter).empty() || !m_store.setRetention(request.parameter, retention))
        throw HttpError(Status::HTTP_NOT_FOUND, "There is no such application");
    logEvent("retention_set",
             {{"peer", request.peer},
              {"bundle_id", request.parameter},
              {"max_age_days", shown(retention.maximumAgeDays)},
              {"max_bytes", shown(retention.maximumBytes)}});
    return {.status = Status::HTTP_NO_CONTENT};
}

} // namespace wexel::receiver

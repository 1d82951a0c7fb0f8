#include "Handlers/Dashboard/RetentionHandler.h"

#include "BundleId.h"
#include "Http/JsonBody.h"
#include "Log.h"
#include "RetentionLimits.h"

namespace wexel::receiver {

namespace {

std::string shown(const std::optional<std::int64_t> &limit)
{
    return limit ? std::to_string(*limit) : "none";
}

} // namespace

Answer RetentionHandler::handle(Request &request)
{
    const Poco::JSON::Object::Ptr body = readJsonBody(request);
    const Retention retention = readRetention(*body);
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

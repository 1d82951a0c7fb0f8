#include "Handlers/Dashboard/ApplicationListHandler.h"

#include "BundleId.h"
#include "Json.h"
#include "Log.h"

namespace wexel::receiver {

namespace {

std::string toJson(const ApplicationOverview &overview)
{
    return jsonObject({{"bundle_id", jsonString(overview.application.bundleId)},
                       {"os", jsonString(overview.application.os)},
                       {"platform", jsonString(overview.application.platform)},
                       {"archived", jsonBool(overview.archived)},
                       {"reports", jsonNumber(overview.reports)},
                       {"bytes", jsonNumber(overview.bytes)},
                       {"last_received", jsonNumber(overview.lastReceived)},
                       {"max_age_days", jsonNumber(overview.retention.maximumAgeDays)},
                       {"max_bytes", jsonNumber(overview.retention.maximumBytes)}});
}

} // namespace

Answer ApplicationListHandler::handle(Request &)
{
    return jsonAnswer(jsonObject({{"applications", jsonArray(m_store.applications(), toJson)}}));
}

Answer ArchivedHandler::handle(Request &request)
{
    const std::string &bundleId = request.parameter;
    if (const std::string fault = bundleIdFault(bundleId); !fault.empty())
        throw HttpError(Status::HTTP_BAD_REQUEST, fault);
    m_store.setArchived(bundleId, m_archived);
    logEvent(m_archived ? "archived" : "unarchived", {{"peer", request.peer}, {"bundle_id", bundleId}});
    return {.status = Status::HTTP_NO_CONTENT};
}

} // namespace wexel::receiver

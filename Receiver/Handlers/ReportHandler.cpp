#include "Handlers/ReportHandler.h"

#include "BundleId.h"
#include "Log.h"
#include "Metrics.h"
#include "ReportDocument.h"
#include "Storage/Database.h"

namespace wexel::receiver {

namespace {

Answer busy()
{
    Answer answer = errorAnswer(Status::HTTP_SERVICE_UNAVAILABLE, "Too many large reports arrive at once");
    answer.headers.emplace_back("Retry-After", "5");
    return answer;
}

[[noreturn]] void refuseArchived()
{
    throw HttpError(Status::HTTP_FORBIDDEN, "The application is archived");
}

} // namespace

Answer ReportHandler::handle(Request &request)
{
    const std::string &bundleId = request.parameter;
    if (const std::string fault = bundleIdFault(bundleId); !fault.empty())
        throw HttpError(Status::HTTP_BAD_REQUEST, fault);
    if (!request.caller.mayReportFor(bundleId))
        throw HttpError(Status::HTTP_FORBIDDEN, "The client may not report for this application");
    if (m_store.isArchived(bundleId)) // before the body, which need not be read then
        refuseArchived();
    request.body.setLimit(m_maximumSize, "The report");
    MemoryBudget::Share share(m_memory);
    std::optional<std::string> json = request.body.readWithin(share);
    if (!json)
        return busy();
    const std::optional<AddedReport> added
        = m_store.addReport(newReport(bundleId, std::move(*json), currentMilliseconds()));
    if (!added)
        refuseArchived();
    logEvent(added->isNew ? "report" : "report_again",
             {{"id", std::to_string(added->id)}, {"bundle_id", bundleId}});
    Metrics::instance().count(added->isNew ? Metrics::Event::ReportStored : Metrics::Event::ReportRepeated);
    return jsonAnswer("{\"id\":" + std::to_string(added->id) + "}");
}

} // namespace wexel::receiver

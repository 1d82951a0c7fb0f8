#include "Handlers/Dashboard/ReportViewHandler.h"

#include "Handlers/Dashboard/ReportAddress.h"
#include "Json.h"
#include "Log.h"
#include "Metrics.h"

namespace wexel::receiver {

namespace {

std::string fileJson(const StoredFile &file)
{
    return jsonObject({{"id", jsonString(file.id)},
                       {"name", jsonString(file.name)},
                       {"size", jsonNumber(file.size)},
                       {"content_type", jsonString(file.contentType)},
                       {"sha256", jsonString(file.sha256)}});
}

} // namespace

Answer ReportViewHandler::handle(Request &request)
{
    const std::int64_t id = reportIdFrom(request.parameter);
    const std::optional<ReportRow> row = m_store.report(id);
    const ReportFiles files = m_store.filesOf(id);
    const std::optional<std::string> report = m_store.reportJson(id);
    if (!row || !report)
        failNoReport();
    std::string json = jsonObject({{"id", jsonNumber(id)},
                                   {"received", jsonNumber(row->received)},
                                   {"bundle_id", jsonString(row->bundleId)},
                                   {"screenshot", files.screenshot ? fileJson(*files.screenshot) : "null"},
                                   {"files", jsonArray(files.files, fileJson)}});
    json.pop_back();
    // Checked to be one JSON object when it came; large, so not copied more often than needed.
    json.append(",\"report\":").append(*report).append("}");
    return jsonAnswer(std::move(json));
}

Answer ReportRemovalHandler::handle(Request &request)
{
    const std::int64_t id = reportIdFrom(request.parameter);
    if (!m_store.removeReport(id))
        failNoReport();
    logEvent("report_removed", {{"peer", request.peer}, {"id", std::to_string(id)}});
    Metrics::instance().count(Metrics::Event::ReportDeleted);
    return {.status = Status::HTTP_NO_CONTENT};
}

} // namespace wexel::receiver

#include "Handlers/Dashboard/ReportListHandler.h"

#include "BundleId.h"
#include "Http/Query.h"
#include "Json.h"

#include <map>

namespace wexel::receiver {

namespace {

using Sort = ReportQuery::Sort;

constexpr std::size_t maximumTextLength = 1000;
constexpr std::int64_t maximumTime = std::int64_t(1) << 53;
constexpr std::int64_t maximumPage = 1'000'000;
constexpr std::int64_t maximumPageSize = 200;

std::string bundleIdIn(const Query &query)
{
    std::string bundleId = query.text("bundle_id", maximumTextLength);
    if (const std::string fault = bundleIdFault(bundleId); !bundleId.empty() && !fault.empty())
        throw HttpError(Status::HTTP_BAD_REQUEST, fault);
    return bundleId;
}

void readSort(const Query &query, ReportQuery &result)
{
    static const std::map<std::string_view, Sort> columns = {{"received", Sort::Received},
                                                             {"bundle_id", Sort::BundleId},
                                                             {"tester", Sort::Tester},
                                                             {"device", Sort::Device},
                                                             {"app_version", Sort::AppVersion}};
    const std::string text = query.text("sort", maximumTextLength);
    if (text.empty())
        return;
    result.isDescending = text.starts_with('-');
    const auto column = columns.find(std::string_view(text).substr(result.isDescending ? 1 : 0));
    if (column == columns.end())
        throw HttpError(
            Status::HTTP_BAD_REQUEST,
            "The sort must be received, bundle_id, tester, device or app_version; with - for descending");
    result.sort = column->second;
}

ReportQuery reportQuery(const Query &query)
{
    ReportQuery result;
    result.search = query.text("search", maximumTextLength);
    result.bundleId = bundleIdIn(query);
    result.appVersion = query.text("version", maximumTextLength);
    result.device = query.text("device", maximumTextLength);
    result.from = query.number("from", 0, maximumTime);
    result.to = query.number("to", 0, maximumTime);
    result.page = query.number("page", 1, maximumPage).value_or(result.page);
    result.size = query.number("size", 1, maximumPageSize).value_or(result.size);
    readSort(query, result);
    return result;
}

std::string rowJson(const ReportRow &row)
{
    return jsonObject({{"id", jsonNumber(row.id)},
                       {"received", jsonNumber(row.received)},
                       {"bundle_id", jsonString(row.bundleId)},
                       {"summary", jsonString(row.summary)},
                       {"tester", jsonString(row.tester)},
                       {"device", jsonString(row.device)},
                       {"os_version", jsonString(row.osVersion)},
                       {"app_version", jsonString(row.appVersion)},
                       {"thumbnail", jsonBool(row.hasScreenshot)},
                       {"files", jsonNumber(row.files)}});
}

} // namespace

Answer ReportListHandler::handle(Request &request)
{
    const Query query(request.header.getURI(),
                      {"search", "bundle_id", "version", "device", "from", "to", "sort", "page", "size"});
    const ReportPage page = m_store.page(reportQuery(query));
    return jsonAnswer(jsonObject({{"reports", jsonArray(page.rows, rowJson)},
                                  {"total", jsonNumber(page.total)},
                                  {"newest", jsonNumber(page.newest)}}));
}

Answer FiltersHandler::handle(Request &request)
{
    const Query query(request.header.getURI(), {"bundle_id"});
    const Filters filters = m_store.filters(bundleIdIn(query));
    return jsonAnswer(jsonObject({{"versions", jsonArray(filters.versions, jsonString)},
                                  {"devices", jsonArray(filters.devices, jsonString)}}));
}

} // namespace wexel::receiver

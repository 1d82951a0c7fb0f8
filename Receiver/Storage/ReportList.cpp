#include "Storage/ReportListing.h"
#include "Storage/SqlReportStore.h"
#include "Text.h"

#include <Poco/Data/RecordSet.h>

#include <functional>
#include <map>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::RecordSet;
using Poco::Data::Session;
using Poco::Data::Statement;

namespace {

constexpr std::size_t wantedSearchSize = 200; // bytes
constexpr int filterCount = 200;

/// The part of a statement behind WHERE, and its values.
class Conditions
{
public:
    template <typename Value>
    void add(const std::string &before, const Value &value, const std::string &behind = {})
    {
        m_bindings.push_back([value] { return bind(value); });
        m_text += (m_text.empty() ? " WHERE " : " AND ") + before + '$' + std::to_string(m_bindings.size())
            + behind;
    }

    /// Adds a value that is no condition, and returns its place.
    std::string value(std::int64_t value)
    {
        m_bindings.push_back([value] { return bind(value); });
        return '$' + std::to_string(m_bindings.size());
    }

    const std::string &text() const { return m_text; }

    void bindTo(Statement &statement) const
    {
        for (const auto &binding : m_bindings)
            statement.addBind(binding());
    }

private:
    std::string m_text;
    /// A binding serves one statement only.
    std::vector<std::function<Poco::Data::AbstractBinding::Ptr()>> m_bindings;
};

std::string pattern(const std::string &search)
{
    std::string result = "%";
    for (const char c : searchText(search, wantedSearchSize)) {
        if (c == '%' || c == '_' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + '%';
}

Conditions conditionsOf(const ReportQuery &query)
{
    Conditions conditions;
    if (!query.bundleId.empty())
        conditions.add("bundle_id = ", storable(query.bundleId));
    if (!query.appVersion.empty())
        conditions.add("app_version = ", storable(query.appVersion));
    if (!query.device.empty())
        conditions.add("device = ", storable(query.device));
    if (query.from)
        conditions.add("received >= ", *query.from);
    if (query.to)
        conditions.add("received < ", *query.to);
    if (!query.search.empty())
        conditions.add("search LIKE ", pattern(query.search), " ESCAPE '\\'");
    return conditions;
}

/// The id decides among equals, so that pages neither overlap nor leave one out.
std::string orderOf(const ReportQuery &query)
{
    using Sort = ReportQuery::Sort;
    static const std::map<Sort, std::string> columns = {{Sort::Received, "received"},
                                                        {Sort::BundleId, "bundle_id"},
                                                        {Sort::Tester, "tester"},
                                                        {Sort::Device, "device"},
                                                        {Sort::AppVersion, "app_version"}};
    const std::string direction = query.isDescending ? " DESC" : " ASC";
    return " ORDER BY " + columns.at(query.sort) + direction + ", id" + direction;
}

/// The rows of \a part, a condition with its order and limit. What each row costs is paid for those alone.
std::string rowsOf(const std::string &part, const std::string &order)
{
    return "SELECT id, received, bundle_id, summary, tester, device, os_version, app_version, "
           "(SELECT count(*) FROM report_files WHERE report_id = picked.id AND position = 0) AS screenshots, "
           "(SELECT count(*) FROM report_files WHERE report_id = picked.id AND position > 0) AS attached "
           "FROM (SELECT id, received, bundle_id, summary, tester, device, os_version, app_version "
           "FROM reports"
        + part + ") AS picked" + order;
}

ReportRow rowAt(RecordSet &rows)
{
    const auto text = [&](const char *column) { return rows[column].convert<std::string>(); };
    const auto number = [&](const char *column) { return rows[column].convert<Poco::Int64>(); };
    return {number("id"),       number("received"),  text("bundle_id"),
            text("summary"),    text("tester"),      text("device"),
            text("os_version"), text("app_version"), number("screenshots") > 0,
            number("attached")};
}

std::vector<ReportRow> readRows(Session &session, const std::string &sql, const Conditions &conditions)
{
    Statement select(session);
    select << sql;
    conditions.bindTo(select);
    select.execute();
    RecordSet rows(select);
    std::vector<ReportRow> result;
    for (bool more = rows.moveFirst(); more; more = rows.moveNext())
        result.push_back(rowAt(rows));
    return result;
}

std::int64_t countRows(Session &session, const Conditions &conditions)
{
    std::int64_t count = 0;
    Statement select(session);
    select << "SELECT count(*) FROM reports" + conditions.text(), into(count);
    conditions.bindTo(select);
    select.execute();
    return count;
}

std::vector<std::string> mostFrequent(Session &session, const std::string &column,
                                      const std::string &bundleId)
{
    Conditions conditions;
    if (!bundleId.empty())
        conditions.add("bundle_id = ", storable(bundleId));
    std::vector<std::string> values;
    Statement select(session);
    select << "SELECT " + column + " FROM reports" + conditions.text() + " GROUP BY " + column + " HAVING "
            + column + " <> '' ORDER BY count(*) DESC, " + column + " LIMIT " + std::to_string(filterCount),
        into(values);
    conditions.bindTo(select);
    select.execute();
    return values;
}

std::optional<std::int64_t> limitAt(RecordSet &rows, const char *column)
{
    const Poco::Dynamic::Var value = rows[column];
    return value.isEmpty() ? std::nullopt : std::optional<std::int64_t>(value.convert<Poco::Int64>());
}

ApplicationOverview overviewAt(RecordSet &rows)
{
    const auto text = [&](const char *column) { return rows[column].convert<std::string>(); };
    const auto number = [&](const char *column) { return rows[column].convert<Poco::Int64>(); };
    return {{text("bundle_id"), text("os"), text("platform")},
            number("archived") != 0,
            number("reports"),
            number("bytes"),
            limitAt(rows, "last_received"),
            {limitAt(rows, "max_age_days"), limitAt(rows, "max_bytes")}};
}

} // namespace

ReportPage SqlReportStore::page(const ReportQuery &query)
{
    ReportPage page;
    m_database.read([&](Session &session) {
        Conditions conditions = conditionsOf(query);
        page.total = countRows(session, conditions);
        session << "SELECT coalesce(max(id), 0) FROM reports", into(page.newest), now;
        if ((query.page - 1) * query.size >= page.total)
            return;
        const std::string where = conditions.text();
        const std::string limit = " LIMIT " + conditions.value(query.size);
        const std::string offset = " OFFSET " + conditions.value((query.page - 1) * query.size);
        page.rows
            = readRows(session, rowsOf(where + orderOf(query) + limit + offset, orderOf(query)), conditions);
    });
    return page;
}

Filters SqlReportStore::filters(const std::string &bundleId)
{
    Filters filters;
    m_database.read([&](Session &session) {
        filters.versions = mostFrequent(session, "app_version", bundleId);
        filters.devices = mostFrequent(session, "device", bundleId);
    });
    return filters;
}

std::optional<ReportRow> SqlReportStore::report(std::int64_t id)
{
    std::vector<ReportRow> found;
    m_database.read([&](Session &session) {
        Conditions conditions;
        conditions.add("id = ", id);
        found = readRows(session, rowsOf(conditions.text(), ""), conditions);
    });
    return found.empty() ? std::nullopt : std::optional(found.front());
}

std::vector<ApplicationOverview> readApplications(Session &session)
{
    Statement select(session);
    select << "SELECT applications.bundle_id, os, platform, archived, max_age_days, max_bytes, "
              "count(received) AS reports, coalesce(sum(bytes), 0) AS bytes, max(received) AS last_received "
              "FROM applications LEFT JOIN reports ON reports.bundle_id = applications.bundle_id "
              "GROUP BY applications.bundle_id ORDER BY applications.bundle_id",
        now;
    RecordSet rows(select);
    std::vector<ApplicationOverview> applications;
    for (bool more = rows.moveFirst(); more; more = rows.moveNext())
        applications.push_back(overviewAt(rows));
    return applications;
}

std::vector<ApplicationOverview> SqlReportStore::applications()
{
    std::vector<ApplicationOverview> result;
    m_database.read([&](Session &session) { result = readApplications(session); });
    return result;
}

} // namespace wexel::receiver

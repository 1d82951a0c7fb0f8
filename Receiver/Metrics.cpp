#include "Metrics.h"

#include <Poco/NumberFormatter.h>

#include <algorithm>

namespace wexel::receiver {

namespace {

const std::string prefix = "wexel_receiver_";

std::string heading(const std::string &name, const std::string &type, const std::string &help)
{
    return "# HELP " + prefix + name + ' ' + help + "\n# TYPE " + prefix + name + ' ' + type + '\n';
}

std::string sample(const std::string &name, const std::string &labels, const std::string &value)
{
    return prefix + name + (labels.empty() ? "" : '{' + labels + '}') + ' ' + value + '\n';
}

std::string metric(const std::string &name, const std::string &type, const std::string &help,
                   std::uint64_t value)
{
    return heading(name, type, help) + sample(name, "", std::to_string(value));
}

} // namespace

Metrics &Metrics::instance()
{
    static Metrics metrics;
    return metrics;
}

void Metrics::count(Event event, std::uint64_t times)
{
    m_events[static_cast<std::size_t>(event)] += times;
}

void Metrics::countRequest(const std::string &route, int status, std::chrono::steady_clock::duration duration,
                           std::uint64_t bytesReceived)
{
    const double seconds = std::chrono::duration<double>(duration).count();
    const auto bucket = std::lower_bound(bounds.begin(), bounds.end(), seconds) - bounds.begin();
    const std::lock_guard lock(m_mutex);
    ++m_requests[{route, status}];
    ++m_durations[static_cast<std::size_t>(bucket)];
    m_seconds += seconds;
    m_bytesReceived += bytesReceived;
}

void Metrics::countRefusal(int status)
{
    const std::lock_guard lock(m_mutex);
    ++m_requests[{{}, status}];
}

std::string Metrics::text() const
{
    const auto event = [this](Event which) { return m_events[static_cast<std::size_t>(which)].load(); };
    const auto connections = static_cast<std::uint64_t>(std::max<std::int64_t>(0, m_connections));
    std::string text = heading("info", "gauge", "The program.")
        + sample("info", "version=\"" WEXEL_RECEIVER_VERSION "\"", "1")
        + metric("connections", "gauge", "Connections open now.", connections)
        + metric("reports_stored_total", "counter", "Reports that were stored.", event(Event::ReportStored))
        + metric("reports_repeated_total", "counter", "Reports that were there already.",
                 event(Event::ReportRepeated))
        + metric("reports_deleted_total", "counter", "Reports that were deleted.",
                 event(Event::ReportDeleted))
        + metric("sign_in_failures_total", "counter", "Wrong passwords.", event(Event::SignInFailed))
        + metric("storage_failures_total", "counter", "Requests that the storage failed.",
                 event(Event::StorageFailed));
    const std::lock_guard lock(m_mutex);
    return text + metric("received_bytes_total", "counter", "Bytes of bodies received.", m_bytesReceived)
        + requestText() + durationText();
}

std::string Metrics::requestText() const
{
    std::string text = heading("requests_total", "counter", "Requests by route and status.");
    for (const auto &[key, count] : m_requests)
        text += sample("requests_total",
                       "route=\"" + (key.first.empty() ? "none" : key.first) + "\",status=\""
                           + std::to_string(key.second) + '"',
                       std::to_string(count));
    return text;
}

std::string Metrics::durationText() const
{
    const std::string name = "request_duration_seconds";
    std::string text = heading(name, "histogram", "Time from a request's header to its answer.");
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < m_durations.size(); ++i) {
        sum += m_durations[i];
        const std::string bound = i < bounds.size() ? Poco::NumberFormatter::format(bounds[i]) : "+Inf";
        text += sample(name + "_bucket", "le=\"" + bound + '"', std::to_string(sum));
    }
    return text + sample(name + "_sum", "", Poco::NumberFormatter::format(m_seconds, 6))
        + sample(name + "_count", "", std::to_string(sum));
}

} // namespace wexel::receiver

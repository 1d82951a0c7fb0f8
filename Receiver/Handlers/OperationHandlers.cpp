#include "Handlers/OperationHandlers.h"

#include "Metrics.h"

namespace wexel::receiver {

Answer HealthHandler::handle(Request &)
{
    if (m_probe.isHealthy(std::chrono::seconds(1)))
        return jsonAnswer(R"({"status":"ok"})");
    return jsonAnswer(R"({"status":"failed","error":"The database does not answer"})",
                      Status::HTTP_SERVICE_UNAVAILABLE);
}

Answer MetricsHandler::handle(Request &)
{
    return {.contentType = "text/plain; version=0.0.4; charset=utf-8", .body = Metrics::instance().text()};
}

} // namespace wexel::receiver

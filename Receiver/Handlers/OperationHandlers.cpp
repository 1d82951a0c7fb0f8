#include "Handlers/OperationHandlers.h"

#include "Metrics.h"

namespace wexel::receiver {

Answer HealthHandler::handle(Request &)
{
    const auto failed = [](const std::string &why) {
        Answer answer
            = jsonAnswer(R"({"status":"failed","error":")" + why + "\"}", Status::HTTP_SERVICE_UNAVAILABLE);
        answer.fault = why;
        return answer;
    };
    switch (m_probe.fault(std::chrono::seconds(1))) {
    case HealthProbe::Fault::Database:
        return failed("The database does not answer");
    case HealthProbe::Fault::Files:
        return failed("The files can't be written");
    case HealthProbe::Fault::None:
        break;
    }
    return jsonAnswer(R"({"status":"ok"})");
}

Answer MetricsHandler::handle(Request &)
{
    return {.contentType = "text/plain; version=0.0.4; charset=utf-8", .body = Metrics::instance().text()};
}

} // namespace wexel::receiver

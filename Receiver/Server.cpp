#include "Server.h"

#include "Access/AccessControl.h"
#include "Handlers/ApplicationsHandler.h"
#include "Handlers/Dashboard/AccessRoutes.h"
#include "Handlers/Dashboard/DashboardRoutes.h"
#include "Handlers/FileDownloadHandler.h"
#include "Handlers/FileUploadHandler.h"
#include "Handlers/OperationHandlers.h"
#include "Handlers/ReportHandler.h"
#include "Handlers/TokenHandler.h"
#include "Handlers/WhiteLabelingHandler.h"
#include "Http/Connection.h"

#include <Poco/Net/TCPServer.h>
#include <Poco/ThreadPool.h>

#include <limits>
#include <utility>

namespace wexel::receiver {

using Access = Router::Access;

namespace {

/// Threads beyond the limit of connections, which tell clients that they are too many.
constexpr int spareThreads = 16;
const std::string filesPath = "api/1.0/files";

Poco::Net::HTTPServerParams::Ptr parametersFor(const Options &options)
{
    Poco::Net::HTTPServerParams::Ptr parameters = new Poco::Net::HTTPServerParams;
    parameters->setMaxThreads(options.maximumConnections + spareThreads);
    parameters->setMaxQueued(spareThreads);
    parameters->setTimeout(Poco::Timespan(options.requestTimeout, 0));
    parameters->setMaxKeepAliveRequests(std::numeric_limits<int>::max());
    return parameters;
}

Router routesFor(const Options &options, DataFolder &data, AccessControl &access, HealthProbe &probe,
                 const std::string &baseUrl)
{
    Router router(access.gatekeeper, options.usesTls());
    router.add("POST", "auth/oauth2/token", Access::Anyone,
               std::make_unique<TokenHandler>(access.clients, options.tokenLifetime));
    router.add("POST", "api/1.0/issue_tracking/apps", Access::TokenNeeded,
               std::make_unique<ApplicationsHandler>(data.reports()));
    router.add("POST", "api/1.0/issue_tracking/apps/{}", Access::TokenNeeded,
               std::make_unique<ReportHandler>(data.reports(), options.maximumReportSize));
    router.add("POST", filesPath, Access::TokenNeeded,
               std::make_unique<FileUploadHandler>(data.files(), data.reports(), baseUrl + filesPath + '/',
                                                   options.maximumFileSize),
               Router::Refusal::BrokenOff);
    router.add("GET", filesPath + "/{}", Access::Anyone,
               std::make_unique<FileDownloadHandler>(data.files(), data.reports()));
    router.add("GET", "api/1.0/white-labeling", Access::TokenNeeded,
               std::make_unique<WhiteLabelingHandler>(options.whiteLabeling));
    router.add("GET", "healthz", Access::Anyone, std::make_unique<HealthHandler>(probe));
    router.add("GET", "metrics", Access::Anyone, std::make_unique<MetricsHandler>());
    addAccessRoutes(router, access, options.clients);
    addDashboardPages(router);
    addDashboardData(router, data);
    return router;
}

} // namespace

struct Server::Parts {
    Parts(const Options &options, DataFolder &data, Port &&openPort)
        : port(std::move(openPort))
        , access(options, data.database(), data.tokens())
        , probe(data.database(), data.files())
        , router(routesFor(options, data, access, probe,
                           options.publicUrl.empty() ? port.url() : options.publicUrl))
        , service{router,
                  watchdog,
                  options.trustedProxies,
                  std::chrono::seconds(options.requestTimeout),
                  std::chrono::seconds(options.idleTimeout),
                  options.leastRate,

                  static_cast<std::size_t>(options.maximumConnections),
                  parametersFor(options)}
        , threads(2, options.maximumConnections + spareThreads + 1)
        , server(new ConnectionFactory(service), threads, port.listen(), service.parameters)
    {
    }

    Port port;
    AccessControl access;
    HealthProbe probe;
    Router router;
    Watchdog watchdog;
    Service service;
    Poco::ThreadPool threads;
    Poco::Net::TCPServer server;
};

Server::Server(const Options &options, DataFolder &data, Port port)
    : m_parts(std::make_unique<Parts>(options, data, std::move(port)))
{
    m_parts->server.start();
}

Server::~Server() = default;

std::string Server::url() const
{
    return m_parts->port.url();
}

std::vector<std::string> Server::routes() const
{
    return m_parts->router.routes();
}

void Server::stop(std::chrono::seconds grace)
{
    m_parts->server.stop();
    m_parts->port.close();
    m_parts->watchdog.stop(grace);
    m_parts->threads.joinAll();
}

} // namespace wexel::receiver

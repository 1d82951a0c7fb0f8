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

#include <Poco/Net/Context.h>
#include <Poco/Net/SSLManager.h>
#include <Poco/Net/SecureServerSocket.h>
#include <Poco/Net/TCPServer.h>
#include <Poco/ThreadPool.h>

#include <openssl/ssl.h>

#include <limits>

namespace wexel::receiver {

using Poco::Net::Context;
using Poco::Net::ServerSocket;
using Poco::Net::SocketAddress;
using Access = Router::Access;

namespace {

/// Threads beyond the limit of connections, which tell clients that they are too many.
constexpr int spareThreads = 16;
constexpr int listenBacklog = 128;
constexpr std::chrono::seconds stopGrace{10};
const std::string filesPath = "api/1.0/files";

ServerSocket secureSocket(const Options &options)
{
    Poco::Net::initializeSSL();
    Context::Params parameters;
    parameters.certificateFile = options.certificateFile;
    parameters.privateKeyFile = options.privateKeyFile;
    parameters.verificationMode = Context::VERIFY_NONE; // clients prove themselves by their token
    parameters.cipherList = "ECDHE+AESGCM:ECDHE+CHACHA20"; // of TLS 1.2; those of 1.3 are all good
    try {
        Context::Ptr context = new Context(Context::TLS_SERVER_USE, parameters);
        context->requireMinimumProtocol(Context::PROTO_TLSV1_2);
        // OpenSSL drops a key that does not fit, without a word, and every handshake would fail.
        if (::SSL_CTX_check_private_key(context->sslContext()) != 1)
            throw std::runtime_error("The key in " + options.privateKeyFile
                                     + " does not belong to the certificate in " + options.certificateFile);
        return Poco::Net::SecureServerSocket(context);
    } catch (const Poco::Exception &error) {
        throw std::runtime_error("Can't use the certificate " + options.certificateFile + " with the key "
                                 + options.privateKeyFile + ": " + error.displayText());
    }
}

ServerSocket openSocket(const Options &options)
{
    ServerSocket socket = options.usesTls() ? secureSocket(options) : ServerSocket();
    try {
        // Not the constructor that binds: it shares the port with whoever listens on it already.
        socket.bind(SocketAddress(options.listenHost, options.listenPort), true, false);
        socket.listen(listenBacklog);
        return socket;
    } catch (const Poco::Exception &error) {
        throw std::runtime_error("Can't listen on " + options.listenHost + " port "
                                 + std::to_string(options.listenPort) + ": " + error.displayText());
    }
}

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
    Parts(const Options &options, DataFolder &data)
        : socket(openSocket(options))
        , url((options.usesTls() ? "https://" : "http://") + socket.address().toString() + '/')
        , access(options, data.database(), data.tokens())
        , probe(data.database(), data.files())
        , router(routesFor(options, data, access, probe, options.publicUrl.empty() ? url : options.publicUrl))
        , service{router,
                  watchdog,
                  options.trustedProxies,
                  std::chrono::seconds(options.requestTimeout),
                  std::chrono::seconds(options.idleTimeout),
                  options.leastRate,

                  static_cast<std::size_t>(options.maximumConnections),
                  parametersFor(options)}
        , threads(2, options.maximumConnections + spareThreads + 1)
        , server(new ConnectionFactory(service), threads, socket, service.parameters)
    {
    }

    ServerSocket socket;
    std::string url;
    AccessControl access;
    HealthProbe probe;
    Router router;
    Watchdog watchdog;
    Service service;
    Poco::ThreadPool threads;
    Poco::Net::TCPServer server;
};

Server::Server(const Options &options, DataFolder &data) : m_parts(std::make_unique<Parts>(options, data))
{
    m_parts->server.start();
}

Server::~Server() = default;

std::string Server::url() const
{
    return m_parts->url;
}

std::vector<std::string> Server::routes() const
{
    return m_parts->router.routes();
}

void Server::stop()
{
    m_parts->server.stop();
    m_parts->socket.close();
    m_parts->watchdog.stop(stopGrace);
    m_parts->threads.joinAll();
}

} // namespace wexel::receiver

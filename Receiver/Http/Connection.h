#pragma once

#include "Http/Router.h"
#include "Http/TrustedProxies.h"
#include "Http/Watchdog.h"

#include <Poco/Net/HTTPServerParams.h>
#include <Poco/Net/HTTPServerSession.h>
#include <Poco/Net/TCPServerConnection.h>
#include <Poco/Net/TCPServerConnectionFactory.h>

#include <chrono>
#include <optional>

namespace wexel::receiver {

/// What every connection works with.
struct Service {
    const Router &router;
    Watchdog &watchdog;
    const TrustedProxies &proxies;
    std::chrono::seconds requestTimeout; ///< in which a request must arrive, however short
    std::chrono::seconds idleTimeout; ///< in which a next request must begin
    std::uint64_t leastRate; ///< bytes a second, of a body
    std::size_t maximumConnections;
    Poco::Net::HTTPServerParams::Ptr parameters;
};

/// One connection, on a thread of its own: reads a request, has it answered, until either side has had enough.
/// It takes the place of Poco's own loop, which bounds each read but not a whole request, does not drain bodies that were
/// not read, and answers faults without a text.
class Connection : public Poco::Net::TCPServerConnection
{
public:
    Connection(const Poco::Net::StreamSocket &socket, Service &service);

    void run() override;

private:
    void serve();
    void refuse(Poco::Net::HTTPServerSession &session, Watchdog::Watch &watch);
    bool serveRequest(Poco::Net::HTTPServerSession &session, Watchdog::Watch &watch);
    /// Of TLS, once; true without it. Logs a failure.
    bool completeHandshake(const Watchdog::Watch &watch);
    bool exchange(Poco::Net::HTTPServerRequestImpl &request, Poco::Net::HTTPServerResponseImpl &response,
                  Watchdog::Watch &watch);
    Answer answer(Poco::Net::HTTPServerRequestImpl &request, Poco::Net::HTTPServerResponseImpl &response,
                  const std::string &sender, std::optional<RequestBody> &body, Watchdog::Watch &watch) const;
    void sendUnasked(Poco::Net::HTTPServerSession &session, Answer answer) const;

    Service &m_service;
    bool m_needsHandshake;
    std::string m_peer;
};

class ConnectionFactory : public Poco::Net::TCPServerConnectionFactory
{
public:
    explicit ConnectionFactory(Service &service) : m_service(service) { }

    Poco::Net::TCPServerConnection *createConnection(const Poco::Net::StreamSocket &socket) override
    {
        return new Connection(socket, m_service);
    }

private:
    Service &m_service;
};

} // namespace wexel::receiver

#pragma once

#include "Access/Gatekeeper.h"
#include "Http/Handler.h"

#include <memory>
#include <vector>

namespace wexel::receiver {

/// Finds the handler of a request and turns every failure into an answer. Routes are added before the first request; from
/// then on every thread may call answer().
class Router
{
public:
    enum class Access {
        Anyone,
        TokenNeeded, ///< a client's bearer token
        SessionNeeded, ///< the administrator's session; for a change also its proof that no other site asks
    };

    /// How a client learns of a refusal. The library counts any upload that was answered without an address, except by
    /// 403, as done with and drops its report; of a broken connection it knows that it has to try again.
    enum class Refusal { Plain, BrokenOff };

    /// \a gatekeeper must outlive it.
    Router(const Gatekeeper &gatekeeper, bool usesTls) : m_gatekeeper(gatekeeper), m_usesTls(usesTls) { }

    /// \a path is without the leading slash; one segment of it may be {}, which matches any text.
    void add(const std::string &method, const std::string &path, Access access,
             std::unique_ptr<Handler> handler, Refusal refusal = Refusal::Plain);

    /// Never throws. HEAD is answered as GET, with a body that is not to be sent. A POST to a wrong address is broken off, unless it is the dashboard's: it may have been meant for a
    /// route that is.
    Answer answer(const Poco::Net::HTTPRequest &header, RequestBody &body, const std::string &peer) const;

    /// Each as in "GET /api/1.0/files/{}".
    std::vector<std::string> routes() const;

private:
    struct Route {
        std::string method;
        std::string path;
        Access access;
        std::unique_ptr<Handler> handler;
        Refusal refusal;
    };

    /// The route, or its absence, the methods that the address allows and the first route that it has.
    struct Match {
        const Route *route = nullptr;
        std::string parameter = {};
        std::string allowed = {};
        const Route *addressed = nullptr;
    };

    static std::string nameOf(const Route &route);
    Match find(const std::string &method, std::string_view path) const;
    Answer run(const Route &route, Request request) const;
    Answer dispatch(const Route &route, Request &request) const;
    std::optional<Caller> admit(const Route &route, const Poco::Net::HTTPRequest &header) const;

    const Gatekeeper &m_gatekeeper;
    bool m_usesTls;
    std::vector<Route> m_routes;
};

} // namespace wexel::receiver

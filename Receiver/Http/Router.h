#pragma once

#include "Http/Handler.h"

#include <functional>
#include <memory>
#include <vector>

namespace wexel::receiver {

/// Finds the handler of a request and turns every failure into an answer. Routes are added before the first request; from
/// then on every thread may call answer().
class Router
{
public:
    enum class Access { Anyone, TokenNeeded };

    /// How a client learns of a refusal. The library counts any upload that was answered without an address, except by
    /// 403, as done with and drops its report; of a broken connection it knows that it has to try again.
    enum class Refusal { Plain, BrokenOff };

    /// \a isTokenGood judges the bearer token of a request.
    explicit Router(std::function<bool(const std::string &)> isTokenGood)
        : m_isTokenGood(std::move(isTokenGood))
    {
    }

    /// \a path is without the leading slash; one segment of it may be {}, which matches any text.
    void add(const std::string &method, const std::string &path, Access access,
             std::unique_ptr<Handler> handler, Refusal refusal = Refusal::Plain);

    /// Never throws. A POST to a wrong address is broken off: it may have been meant for a route that is.
    Answer answer(const Poco::Net::HTTPRequest &header, RequestBody &body) const;

private:
    struct Route {
        std::string method;
        std::string path;
        Access access;
        std::unique_ptr<Handler> handler;
        Refusal refusal;
    };

    /// The route, or its absence and the methods that the address allows.
    struct Match {
        const Route *route = nullptr;
        std::string parameter;
        std::string allowed;
    };

    Match find(const Poco::Net::HTTPRequest &header) const;
    Answer run(const Route &route, Request request) const;
    Answer dispatch(const Route &route, Request &request) const;

    std::function<bool(const std::string &)> m_isTokenGood;
    std::vector<Route> m_routes;
};

} // namespace wexel::receiver

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

    /// \a isTokenGood judges the bearer token of a request.
    explicit Router(std::function<bool(const std::string &)> isTokenGood)
        : m_isTokenGood(std::move(isTokenGood))
    {
    }

    /// \a path is without the leading slash; one segment of it may be {}, which matches any text.
    void add(const std::string &method, const std::string &path, Access access,
             std::unique_ptr<Handler> handler);

    /// Never throws.
    Answer answer(const Poco::Net::HTTPRequest &header, RequestBody &body) const;

private:
    struct Route {
        std::string method;
        std::string path;
        Access access;
        std::unique_ptr<Handler> handler;
    };

    Answer dispatch(const Poco::Net::HTTPRequest &header, RequestBody &body) const;
    Answer run(const Route &route, Request request) const;

    std::function<bool(const std::string &)> m_isTokenGood;
    std::vector<Route> m_routes;
};

} // namespace wexel::receiver

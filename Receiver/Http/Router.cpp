#include "Http/Router.h"

#include "Http/SecurityHeaders.h"
#include "Log.h"
#include "Metrics.h"
#include "Storage/StorageError.h"

#include <algorithm>
#include <optional>

namespace wexel::receiver {

using Poco::Net::HTTPRequest;

namespace {

/// The text in the place of {} (or an empty one) if \a path fits \a pattern.
std::optional<std::string> match(std::string_view pattern, std::string_view path)
{
    const auto expected = split(pattern, '/');
    const auto segments = split(path, '/');
    std::string parameter;
    if (expected.size() != segments.size())
        return std::nullopt;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (expected[i] == "{}")
            parameter = percentDecoded(segments[i]);
        else if (expected[i] != segments[i])
            return std::nullopt;
    }
    return parameter;
}

Answer storageAnswer(const StorageError &error)
{
    logEvent("storage_failed", {{"error", error.what()}});
    Metrics::instance().count(Metrics::Event::StorageFailed);
    if (error.kind() == StorageError::Kind::Full)
        return errorAnswer(Status::HTTP_INSUFFICIENT_STORAGE, "There is no room to store this");
    return errorAnswer(Status::HTTP_SERVICE_UNAVAILABLE,
                       "This could not be stored or read; the receiver's log says why");
}

Answer unauthorized(Router::Access access)
{
    if (access == Router::Access::SessionNeeded)
        return errorAnswer(Status::HTTP_UNAUTHORIZED, "Nobody is signed in");
    Answer answer = errorAnswer(Status::HTTP_UNAUTHORIZED, "The bearer token is missing, wrong or expired");
    answer.headers.emplace_back("WWW-Authenticate", "Bearer");
    return answer;
}

/// Without its leading slash, and without the scheme and the host that some proxies put before it.
std::string_view pathOf(std::string_view uri)
{
    for (const std::string_view scheme : {"http://", "https://"}) {
        if (uri.starts_with(scheme))
            uri.remove_prefix(std::min(uri.find('/', scheme.size()), uri.size()));
    }
    uri.remove_prefix(uri.starts_with('/') ? 1 : 0);
    return uri.substr(0, uri.find('?'));
}

Answer unroutable(const std::string &allowed)
{
    if (allowed.empty())
        return errorAnswer(Status::HTTP_NOT_FOUND, "There is nothing at this address");
    Answer answer = errorAnswer(Status::HTTP_METHOD_NOT_ALLOWED, "The method must be " + allowed);
    answer.headers.emplace_back("Allow", allowed);
    return answer;
}

} // namespace

void Router::add(const std::string &method, const std::string &path, Access access,
                 std::unique_ptr<Handler> handler, Refusal refusal)
{
    m_routes.push_back({method, path, access, std::move(handler), refusal});
}

Answer Router::answer(const HTTPRequest &header, RequestBody &body, const std::string &peer) const
{
    const std::string_view path = pathOf(header.getURI());
    const Match match = find(header.getMethod(), path);
    Answer answer;
    if (match.route) {
        answer = run(*match.route, {header, body, peer, match.parameter, {}});
    } else {
        answer = unroutable(match.allowed);
        answer.route = match.addressed ? nameOf(*match.addressed) : "";
        answer.brokenOff = header.getMethod() == HTTPRequest::HTTP_POST && !isOfDashboard(path);
    }
    if (isOfDashboard(path))
        protect(answer, m_usesTls);
    return answer;
}

std::vector<std::string> Router::routes() const
{
    std::vector<std::string> names;
    for (const Route &route : m_routes)
        names.push_back(route.method + " /" + route.path);
    return names;
}

std::string Router::nameOf(const Route &route)
{
    return route.method + ' ' + route.path;
}

Router::Match Router::find(const std::string &method, std::string_view path) const
{
    // The connection leaves the body out.
    const std::string &wanted = method == HTTPRequest::HTTP_HEAD ? HTTPRequest::HTTP_GET : method;
    Match found;
    for (const Route &route : m_routes) {
        const std::optional<std::string> parameter = match(route.path, path);
        if (parameter && route.method == wanted)
            return {.route = &route, .parameter = *parameter};
        if (!parameter)
            continue;
        found.addressed = found.addressed ? found.addressed : &route;
        found.allowed += (found.allowed.empty() ? "" : ", ") + route.method
            + (route.method == HTTPRequest::HTTP_GET ? ", HEAD" : "");
    }
    return found;
}

Answer Router::run(const Route &route, Request request) const
{
    const auto guarded = [&]() -> Answer {
        try {
            return dispatch(route, request);
        } catch (const HttpError &error) {
            return errorAnswer(error.status(), error.what());
        } catch (const StorageError &error) {
            return storageAnswer(error);
        } catch (const std::exception &error) {
            logEvent("handler_failed", {{"error", error.what()}});
            return errorAnswer(Status::HTTP_INTERNAL_SERVER_ERROR, "The receiver failed; its log says why");
        }
    };
    Answer answer = guarded();
    answer.route = nameOf(route);
    answer.brokenOff = route.refusal == Refusal::BrokenOff && answer.status >= Status::HTTP_BAD_REQUEST
        && answer.status != Status::HTTP_FORBIDDEN;
    return answer;
}

Answer Router::dispatch(const Route &route, Request &request) const
{
    std::optional<Caller> caller = admit(route, request.header);
    if (!caller)
        return unauthorized(route.access);
    request.caller = std::move(*caller);
    if (route.access == Access::SessionNeeded)
        m_gatekeeper.refuseForgery(request.header, request.caller);
    return route.handler->handle(request);
}

std::optional<Caller> Router::admit(const Route &route, const HTTPRequest &header) const
{
    switch (route.access) {
    case Access::TokenNeeded:
        return m_gatekeeper.client(header);
    case Access::SessionNeeded:
        return m_gatekeeper.administrator(header);
    case Access::Anyone:
        break;
    }
    return Caller{};
}

} // namespace wexel::receiver

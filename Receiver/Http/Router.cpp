#include "Http/Router.h"

#include "Log.h"
#include "Storage/StorageError.h"

#include <Poco/String.h>

#include <optional>

namespace wexel::receiver {

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

std::string bearerToken(const Poco::Net::HTTPRequest &header)
{
    const std::string value = header.get("Authorization", "");
    constexpr std::size_t schemeLength = 7;
    const bool isBearer = Poco::icompare(value, 0, schemeLength, std::string("Bearer ")) == 0;
    return isBearer ? Poco::trim(value.substr(schemeLength)) : std::string();
}

Answer storageAnswer(const StorageError &error)
{
    logEvent("storage_failed", {{"error", error.what()}});
    if (error.kind() == StorageError::Kind::Full)
        return errorAnswer(Status::HTTP_INSUFFICIENT_STORAGE, "There is no room to store this");
    return errorAnswer(Status::HTTP_SERVICE_UNAVAILABLE,
                       "This could not be stored; the receiver's log says why");
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

Answer Router::answer(const Poco::Net::HTTPRequest &header, RequestBody &body) const
{
    const Match match = find(header);
    if (match.route)
        return run(*match.route, {header, body, match.parameter});
    Answer answer = unroutable(match.allowed);
    answer.brokenOff = header.getMethod() == Poco::Net::HTTPRequest::HTTP_POST;
    return answer;
}

Router::Match Router::find(const Poco::Net::HTTPRequest &header) const
{
    std::string_view path = split(header.getURI(), '?').front();
    path.remove_prefix(path.starts_with('/') ? 1 : 0);
    std::string allowed;
    for (const Route &route : m_routes) {
        const std::optional<std::string> parameter = match(route.path, path);
        if (parameter && route.method == header.getMethod())
            return {&route, *parameter, {}};
        if (parameter)
            allowed += (allowed.empty() ? "" : ", ") + route.method;
    }
    return {nullptr, {}, allowed};
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
    answer.brokenOff = route.refusal == Refusal::BrokenOff && answer.status >= Status::HTTP_BAD_REQUEST
        && answer.status != Status::HTTP_FORBIDDEN;
    return answer;
}

Answer Router::dispatch(const Route &route, Request &request) const
{
    if (route.access == Access::Anyone || m_isTokenGood(bearerToken(request.header)))
        return route.handler->handle(request);
    Answer answer = errorAnswer(Status::HTTP_UNAUTHORIZED, "The bearer token is missing, wrong or expired");
    answer.headers.emplace_back("WWW-Authenticate", "Bearer");
    return answer;
}

} // namespace wexel::receiver

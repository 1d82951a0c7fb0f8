#include "Http/Connection.h"

#include "Log.h"

#include <Poco/Net/NetException.h>
#include <Poco/StreamCopier.h>

#include <fstream>
#include <optional>

namespace wexel::receiver {

using Poco::Net::HTTPServerRequestImpl;
using Poco::Net::HTTPServerResponseImpl;
using Poco::Net::HTTPServerSession;
using Phase = Watchdog::Phase;

namespace {

/// For how long a body that nobody wants is read, so that its sender gets to see the answer.
constexpr std::chrono::seconds lingerTime{5};

constexpr const char *tooSlow = "The request took too long to arrive";

/// How much longer than to arrive a request may take to be answered: a large file to a slow reader.
constexpr int answerTimeFactor = 10;

/// Whether the client must not take the answer for the end of the matter. The library counts any upload that was answered
/// without an address, except by 403, as done with and drops the report; of a broken connection it knows that it has to
/// try again.
bool mustBreakOff(const HTTPServerRequestImpl &request, const Answer &answer)
{
    const bool refused = answer.status >= Status::HTTP_BAD_REQUEST && answer.status != Status::HTTP_FORBIDDEN;
    return refused && request.getMethod() == HTTPServerRequestImpl::HTTP_POST
        && request.getURI().find("/api/1.0/files") != std::string::npos;
}

void logRequest(const std::string &peer, const HTTPServerRequestImpl &request, const Answer &answer,
                std::uint64_t received, Watchdog::Clock::time_point started)
{
    const auto duration
        = std::chrono::duration_cast<std::chrono::milliseconds>(Watchdog::Clock::now() - started);
    logEvent("request",
             {{"peer", peer},
              {"method", request.getMethod()},
              {"path", request.getURI()},
              {"status", std::to_string(answer.status)},
              {"received", std::to_string(received)},
              {"ms", std::to_string(duration.count())},
              {"error", answer.status < Status::HTTP_BAD_REQUEST ? "" : answer.body}});
}

} // namespace

Connection::Connection(const Poco::Net::StreamSocket &socket, Service &service)
    : TCPServerConnection(socket)
    , m_service(service)
{
}

void Connection::run()
{
    try {
        m_peer = socket().peerAddress().toString();
        serve();
    } catch (const Poco::Exception &error) {
        logEvent("connection_lost", {{"peer", m_peer}, {"error", error.displayText()}});
    } catch (const std::exception &error) {
        logEvent("connection_failed", {{"peer", m_peer}, {"error", error.what()}});
    }
}

void Connection::serve()
{
    socket().setSendTimeout(Poco::Timespan(m_service.requestTimeout.count(), 0));
    HTTPServerSession session(socket(), m_service.parameters);
    // After the session, which closes the socket.
    Watchdog::Watch watch(m_service.watchdog, socket().impl()->sockfd());
    do {
        watch.enter(Phase::Idle, {});
    } while (session.hasMoreRequests() && serveRequest(session, watch));
}

bool Connection::serveRequest(HTTPServerSession &session, Watchdog::Watch &watch)
{
    watch.enter(Phase::Receiving, m_service.requestTimeout);
    try {
        HTTPServerResponseImpl response(session);
        HTTPServerRequestImpl request(response, session, m_service.parameters.get());
        const bool another = exchange(request, response, watch);
        session.setKeepAlive(another);
        return another;
    } catch (const Poco::Net::NoMessageException &) { // The peer has left.
        if (!watch.expired())
            return false;
    } catch (const Poco::Net::MessageException &) {
    }
    Answer answer = watch.expired() ? errorAnswer(Status::HTTP_REQUEST_TIMEOUT, tooSlow)
                                    : errorAnswer(Status::HTTP_BAD_REQUEST, "This is not an HTTP request");
    answer.brokenOff = true; // it may have been an upload
    logEvent("request_refused", {{"peer", m_peer}, {"status", std::to_string(answer.status)}});
    HTTPServerResponseImpl response(session);
    response.setVersion(Poco::Net::HTTPMessage::HTTP_1_1);
    response.setKeepAlive(false);
    send(response, answer, watch);
    return false;
}

bool Connection::exchange(HTTPServerRequestImpl &request, HTTPServerResponseImpl &response,
                          Watchdog::Watch &watch)
{
    const auto started = Watchdog::Clock::now();
    response.setVersion(request.getVersion());
    std::optional<RequestBody> body;
    Answer answer;
    try {
        // The header of a slow request may have been cut short, so it is not to be trusted.
        if (watch.expired())
            throw HttpError(Status::HTTP_REQUEST_TIMEOUT, tooSlow);
        body.emplace(request, response, watch);
        answer = answerTo(request, *body, watch);
    } catch (const HttpError &error) {
        answer = errorAnswer(error.status(), error.what());
    }
    answer.brokenOff = mustBreakOff(request, answer);
    const bool another = !answer.brokenOff && body && body->leavesConnectionClean() && request.getKeepAlive()
        && !watch.expired() && !watch.stopping() && watch.number() <= m_service.maximumConnections;
    response.setKeepAlive(another);
    logRequest(m_peer, request, answer, body ? body->size() : 0, started);
    send(response, answer, watch);
    if (body && !another) {
        watch.enter(Phase::Answering, lingerTime);
        try {
            body->drain();
        } catch (const HttpError &) { // Nobody is left to be told.
        }
    }
    return another;
}

Answer Connection::answerTo(const HTTPServerRequestImpl &request, RequestBody &body,
                            const Watchdog::Watch &watch) const
{
    if (watch.number() <= m_service.maximumConnections)
        return m_service.router.answer(request, body);
    Answer answer = errorAnswer(Status::HTTP_SERVICE_UNAVAILABLE,
                                "There are more connections than the limit of "
                                    + std::to_string(m_service.maximumConnections));
    answer.headers.emplace_back("Retry-After", "1");
    return answer;
}

void Connection::send(HTTPServerResponseImpl &response, const Answer &answer, Watchdog::Watch &watch) const
{
    watch.enter(Phase::Answering, m_service.requestTimeout * answerTimeFactor);
    std::ifstream file;
    std::uint64_t size = answer.body.size();
    if (!answer.file.empty()) {
        file.open(answer.file, std::ios::binary);
        size = std::filesystem::file_size(answer.file);
    }
    response.setStatusAndReason(answer.status);
    response.setDate(Poco::Timestamp());
    response.setContentType(answer.contentType);
    response.setContentLength64(static_cast<Poco::Int64>(size + (answer.brokenOff ? 1 : 0)));
    response.set("X-Content-Type-Options", "nosniff");
    response.set("Cache-Control", "no-store");
    for (const auto &[name, value] : answer.headers)
        response.set(name, value);
    std::ostream &stream = response.send();
    if (file.is_open())
        Poco::StreamCopier::copyStream(file, stream, 64 * 1024);
    else
        stream << answer.body;
    stream.flush();
}

} // namespace wexel::receiver

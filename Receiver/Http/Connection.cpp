#include "Http/Connection.h"

#include "Log.h"
#include "Metrics.h"

#include <Poco/Net/NetException.h>
#include <Poco/Net/SecureStreamSocket.h>
#include <Poco/StreamCopier.h>

#include <algorithm>
#include <array>
#include <optional>
#include <sys/socket.h>
#include <utility>

namespace wexel::receiver {

using Poco::Net::HTTPMessage;
using Poco::Net::HTTPServerRequestImpl;
using Poco::Net::HTTPServerResponseImpl;
using Poco::Net::HTTPServerSession;
using Phase = Watchdog::Phase;

namespace {

/// For how long a body that nobody wants is read, so that its sender gets to see the answer.
constexpr std::chrono::seconds lingerTime{5};

/// How much longer than to arrive a request may take to be answered: a large file to a slow reader.
constexpr int answerTimeFactor = 10;

/// For how long a connection too many is held, so that its peer gets to see why.
constexpr std::chrono::seconds refusalTime{2};

/// The path as it may be logged: without the query, and with the long segments cut, as the id of a file is the key to it.
std::string loggable(std::string_view uri)
{
    constexpr std::size_t longest = 31;
    constexpr std::size_t kept = 8;
    std::string path;
    for (const std::string_view segment : split(split(uri, '?').front(), '/')) {
        path
            += segment.size() > longest ? std::string(segment.substr(0, kept)) + "..." : std::string(segment);
        path += '/';
    }
    path.pop_back();
    return path;
}

void record(const std::string &peer, const HTTPServerRequestImpl &request, const Answer &answer,
            std::uint64_t received, Watchdog::Clock::time_point started)
{
    const auto time = Watchdog::Clock::now() - started;
    const auto duration = std::chrono::duration_cast<std::chrono::milliseconds>(time);
    Metrics::instance().countRequest(answer.route, answer.status, time, received);
    logEvent("request",
             {{"peer", peer},
              {"method", request.getMethod()},
              {"path", loggable(request.getURI())},
              {"status", std::to_string(answer.status)},
              {"received", std::to_string(received)},
              {"ms", std::to_string(duration.count())},
              {"error", answer.fault}});
}

bool hasBody(Status status)
{
    return status != Status::HTTP_NO_CONTENT && status != Status::HTTP_NOT_MODIFIED;
}

/// Chunks where the peer knows of them; otherwise the body ends with the connection.
bool endsWithConnection(const HTTPServerRequestImpl &request, const Answer &answer)
{
    return answer.writer && request.getVersion() == HTTPMessage::HTTP_1_0;
}

void setLength(HTTPServerResponseImpl &response, const Answer &answer)
{
    const std::uint64_t size = answer.file ? answer.file->size : answer.body.size();
    if (answer.writer)
        response.setChunkedTransferEncoding(response.getVersion() != HTTPMessage::HTTP_1_0);
    else if (hasBody(answer.status))
        response.setContentLength64(static_cast<Poco::Int64>(size + (answer.brokenOff ? 1 : 0)));
}

void sendBody(std::ostream &stream, Answer &answer)
{
    if (answer.writer)
        answer.writer(stream);
    else if (!answer.file)
        stream << answer.body;
    else if (Poco::StreamCopier::copyStream64(*answer.file->stream, stream, 64 * 1024) != answer.file->size)
        throw Poco::ReadFileException("A file ended early"); // and the connection with it
    stream.flush();
}

void send(HTTPServerResponseImpl &response, Answer &answer, bool isHead = false)
{
    response.setStatusAndReason(answer.status);
    response.setDate(Poco::Timestamp());
    response.setContentType(answer.contentType);
    setLength(response, answer);
    response.set("X-Content-Type-Options", "nosniff");
    response.set("Cache-Control", "no-store");
    for (const auto &[name, value] : answer.headers)
        response.set(name, value);
    std::ostream &stream = response.send();
    if (isHead)
        stream.flush();
    else
        sendBody(stream, answer);
}

} // namespace

Connection::Connection(const Poco::Net::StreamSocket &socket, Service &service)
    : TCPServerConnection(socket)
    , m_service(service)
    , m_needsHandshake(socket.secure())
{
}

void Connection::run()
{
    const Metrics::Connected connected;
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
    Watchdog::Watch watch(m_service.watchdog, socket().impl()->sockfd(), m_service.maximumConnections);
    if (watch.isSurplus())
        return refuse(session, watch);
    do {
        watch.enter(Phase::Idle, std::min(m_service.idleTimeout, m_service.requestTimeout));
    } while (session.hasMoreRequests() && serveRequest(session, watch));
}

/// Does not wait for the request: whoever sends none would hold the thread.
void Connection::refuse(HTTPServerSession &session, Watchdog::Watch &watch)
{
    watch.enter(Phase::Answering, refusalTime);
    Answer answer = errorAnswer(Status::HTTP_SERVICE_UNAVAILABLE,
                                "There are more connections than the limit of "
                                    + std::to_string(m_service.maximumConnections));
    answer.headers.emplace_back("Retry-After", "1");
    sendUnasked(session, std::move(answer));
    // Closing with something unread would be a reset, which takes the answer from the peer.
    ::shutdown(socket().impl()->sockfd(), SHUT_WR);
    std::array<char, 4096> block;
    while (socket().receiveBytes(block.data(), block.size()) > 0) { }
}

bool Connection::serveRequest(HTTPServerSession &session, Watchdog::Watch &watch)
{
    watch.enter(Phase::Receiving, m_service.requestTimeout);
    if (!completeHandshake(watch))
        return false;
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
    const HttpError fault = watch.expired()
        ? cutOff(watch)
        : HttpError(Status::HTTP_BAD_REQUEST, "This is not an HTTP request");
    watch.enter(Phase::Answering, lingerTime);
    sendUnasked(session, errorAnswer(fault.status(), fault.what()));
    return false;
}

/// Reading would do it, too, but a failure would pass for a broken request.
bool Connection::completeHandshake(const Watchdog::Watch &watch)
{
    if (!std::exchange(m_needsHandshake, false))
        return true;
    char first = 0;
    if (::recv(socket().impl()->sockfd(), &first, 1, MSG_PEEK | MSG_DONTWAIT) == 0)
        return false; // It has left without a word, as whoever only looks for an open port does.
    std::string fault = "The peer has left";
    try {
        if (Poco::Net::SecureStreamSocket(socket()).completeHandshake() > 0)
            return true;
    } catch (const Poco::Exception &error) {
        fault = error.displayText();
    }
    logEvent("tls_failed", {{"peer", m_peer}, {"error", watch.expired() ? "It took too long" : fault}});
    return false;
}

Answer Connection::answer(HTTPServerRequestImpl &request, HTTPServerResponseImpl &response,
                          const std::string &sender, std::optional<RequestBody> &body,
                          Watchdog::Watch &watch) const
{
    try {
        // The header of a slow request may have been cut short, so it is not to be trusted.
        if (watch.expired())
            throw cutOff(watch);
        if (request.getVersion() != response.getVersion())
            throw HttpError(Status::HTTP_VERSION_NOT_SUPPORTED, "The version must be HTTP/1.1 or HTTP/1.0");
        body.emplace(request, response, watch, m_service.leastRate);
        return m_service.router.answer(request, *body, sender);
    } catch (const HttpError &error) {
        Answer answer = errorAnswer(error.status(), error.what());
        answer.brokenOff = true; // it may have been an upload
        return answer;
    }
}

bool Connection::exchange(HTTPServerRequestImpl &request, HTTPServerResponseImpl &response,
                          Watchdog::Watch &watch)
{
    const auto started = Watchdog::Clock::now();
    const std::string sender = m_service.proxies.senderOf(m_peer, request);
    response.setVersion(request.getVersion() == HTTPMessage::HTTP_1_0 ? HTTPMessage::HTTP_1_0
                                                                      : HTTPMessage::HTTP_1_1);
    std::optional<RequestBody> body;
    Answer answer = this->answer(request, response, sender, body, watch);
    const bool another = !answer.brokenOff && body && body->leavesConnectionClean() && request.getKeepAlive()
        && !watch.expired() && !watch.stopping() && !endsWithConnection(request, answer);
    response.setKeepAlive(another);
    record(sender, request, answer, body ? body->size() : 0, started);
    watch.enter(Phase::Answering, m_service.requestTimeout * answerTimeFactor);
    try {
        send(response, answer, request.getMethod() == HTTPServerRequestImpl::HTTP_HEAD);
    } catch (...) {
        // Or the response would write the last of its chunks, and half a body pass for a whole one.
        ::shutdown(socket().impl()->sockfd(), SHUT_RDWR);
        throw;
    }
    if (body && !another) {
        watch.enter(Phase::Answering, lingerTime);
        try {
            body->drain();
        } catch (const HttpError &) { // Nobody is left to be told.
        }
    }
    return another;
}

/// Answers what could not be read as a request, or was not read at all, and ends the connection.
void Connection::sendUnasked(HTTPServerSession &session, Answer answer) const
{
    answer.brokenOff = true; // it may have been an upload
    logEvent("request_refused",
             {{"peer", m_peer}, {"status", std::to_string(answer.status)}, {"error", answer.fault}});
    Metrics::instance().countRefusal(answer.status);
    HTTPServerResponseImpl response(session);
    response.setVersion(HTTPMessage::HTTP_1_1);
    response.setKeepAlive(false);
    send(response, answer);
}

} // namespace wexel::receiver

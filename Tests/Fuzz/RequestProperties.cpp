#include "RequestProperties.h"

#include "Access/SessionStore.h"
#include "Metrics.h"
#include "Server.h"

#include <Poco/Crypto/OpenSSLInitializer.h>
#include <Poco/Net/NetException.h>
#include <Poco/Net/StreamSocket.h>
#include <Poco/String.h>
#include <Poco/TemporaryFile.h>
#include <Poco/URI.h>

#include <csignal>
#include <optional>

namespace wexel::receiver {

namespace {

Options fuzzedOptions()
{
    std::signal(SIGPIPE, SIG_IGN);
    Options options;
    options.place.data = Poco::TemporaryFile::tempName();
    options.listenPort = 0;
    options.requestTimeout = 5;
    options.maximumFileSize = options.maximumReportSize = 1024 * 1024;
    options.clients.add("id:secret");
    return options;
}

/// The answer, or nothing if it does not end in time.
std::optional<std::string> ask(const Poco::URI &url, const std::string &request)
{
    std::string answer;
    char block[4096];
    Poco::Net::StreamSocket socket(Poco::Net::SocketAddress(url.getHost(), url.getPort()));
    socket.setReceiveTimeout(Poco::Timespan(20, 0));
    try {
        for (std::size_t sent = 0; sent < request.size();)
            sent += static_cast<std::size_t>(
                socket.sendBytes(request.data() + sent, static_cast<int>(request.size() - sent)));
        socket.shutdownSend();
        for (int count = 0; (count = socket.receiveBytes(block, sizeof block)) > 0;)
            answer.append(block, static_cast<std::size_t>(count));
    } catch (const Poco::TimeoutException &) {
        return std::nullopt;
    } catch (const Poco::IOException &) { // A reset ends it too.
    }
    return answer;
}

} // namespace

struct FuzzedReceiver::Parts {
    ~Parts()
    {
        server.stop();
        std::filesystem::remove_all(options.place.data);
    }

    Poco::Crypto::OpenSSLInitializer openSsl;
    Options options = fuzzedOptions();
    DataFolder data{options.place, DataFolder::Access::Serve};
    Server server{options, data, Port(options)};
    SessionStore sessions{data.database()};
    Poco::URI url{server.url()};
    std::string token = data.tokens().issue("id", options.tokenLifetime, currentMilliseconds());
    std::string session = sessions.start(currentMilliseconds());
};

FuzzedReceiver::FuzzedReceiver() : m_parts(std::make_unique<Parts>()) { }

FuzzedReceiver::~FuzzedReceiver() = default;

const char *FuzzedReceiver::brokenRequestProperty(std::string_view bytes)
{
    const auto answer = ask(m_parts->url, completed(bytes));
    if (!answer)
        return "an answer ends in time";
    if (!answer->empty() && !answer->starts_with("HTTP/1."))
        return "an answer is one of HTTP";
    if (Metrics::instance().text().find("storage_failures_total 0\n") == std::string::npos)
        return "no request makes the storage fail";
    return answer->find("HTTP/1.1 500") == answer->npos ? nullptr : "the receiver never fails";
}

std::string FuzzedReceiver::completed(std::string_view bytes)
{
    if (!m_parts->sessions.find(m_parts->session, currentMilliseconds())) // The one before signed out.
        m_parts->session = m_parts->sessions.start(currentMilliseconds());
    std::string text(bytes);
    const std::size_t end = text.find("\r\n\r\n");
    const std::size_t length = end == text.npos ? 0 : text.size() - end - 4;
    Poco::replaceInPlace(text, std::string("$LENGTH"), std::to_string(length));
    Poco::replaceInPlace(text, std::string("$TOKEN"), "Bearer " + m_parts->token);
    Poco::replaceInPlace(text, std::string("$COOKIE"), "wexel_session=" + m_parts->session);
    Poco::replaceInPlace(text, std::string("$CSRF"), SessionStore::describe(m_parts->session).csrf);
    return text;
}

} // namespace wexel::receiver

#include "Handlers.h"

#include <Poco/Net/HTTPRequestHandler.h>
#include <Poco/Net/HTTPServerRequest.h>
#include <Poco/Net/HTTPServerResponse.h>
#include <Poco/NullStream.h>
#include <Poco/StreamCopier.h>
#include <Poco/URI.h>

#include "Files.h"

namespace {

using Poco::Net::HTTPResponse;
using Poco::Net::HTTPServerRequest;
using Poco::Net::HTTPServerResponse;

constexpr int minutesToReady = 8;

class Handler : public Poco::Net::HTTPRequestHandler
{
public:
    Handler(HTTPResponse::HTTPStatus status, std::string contentType, std::string body)
        : m_status(status)
        , m_contentType(std::move(contentType))
        , m_body(std::move(body))
    {
    }

    void handleRequest(HTTPServerRequest &request, HTTPServerResponse &response) override
    {
        Poco::NullOutputStream ignored; // an unread body would be taken for the next request
        Poco::StreamCopier::copyStream(request.stream(), ignored);
        response.setStatusAndReason(m_status);
        response.setContentType(m_contentType);
        response.sendBuffer(m_body.data(), m_body.size());
    }

private:
    const HTTPResponse::HTTPStatus m_status;
    const std::string m_contentType;
    const std::string m_body;
};

/// The path of a request target that may be anything.
std::string pathOf(const std::string &target)
{
    try {
        return Poco::URI(target).getPath();
    } catch (const Poco::Exception &) {
        return {};
    }
}

} // namespace

Poco::Net::HTTPRequestHandler *HandlerFactory::createRequestHandler(const HTTPServerRequest &request)
{
    const std::string path = pathOf(request.getURI());
    if (request.getMethod() == "POST" && path == "/orders") {
        const std::string number = std::to_string(++m_lastOrder);
        return new Handler(HTTPResponse::HTTP_CREATED, "application/json",
                           R"({"number": )" + number + R"(, "minutes": )" + std::to_string(minutesToReady)
                               + "}");
    }
    const auto file = files().find(path);
    if (request.getMethod() != "GET" || file == files().end())
        return new Handler(HTTPResponse::HTTP_NOT_FOUND, "text/plain", "Not found\n");
    const bool picture = path.ends_with(".svg");
    return new Handler(HTTPResponse::HTTP_OK, picture ? "image/svg+xml" : "application/json",
                       std::string(file->second));
}

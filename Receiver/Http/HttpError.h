#pragma once

#include <Poco/Net/HTTPResponse.h>

#include <stdexcept>

namespace wexel::receiver {

using Status = Poco::Net::HTTPResponse::HTTPStatus;

/// Ends a request with \a status; the text, which is for the client's developer, becomes the answer {"error": text}.
class HttpError : public std::runtime_error
{
public:
    HttpError(Status status, const std::string &text) : std::runtime_error(text), m_status(status) { }

    Status status() const { return m_status; }

private:
    Status m_status;
};

} // namespace wexel::receiver

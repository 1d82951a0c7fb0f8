#include "Http/RequestBody.h"

#include "BlockSize.h"

#include <Poco/Net/StreamSocket.h>
#include <Poco/NumberParser.h>
#include <Poco/String.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include <netinet/tcp.h>

namespace wexel::receiver {

using Poco::Net::HTTPRequest;

namespace {

/// A client that leaves Nagle's algorithm on, as Qt's does, holds the end of a body back until the rest is acknowledged,
/// which the kernel puts off by 40 ms. The option wears off, so it is set again for each block.
void acknowledgeAtOnce(Poco::Net::StreamSocket &socket)
{
#ifdef TCP_QUICKACK
    try {
        socket.setOption(IPPROTO_TCP, TCP_QUICKACK, 1);
    } catch (const Poco::Exception &) { // the connection is gone, as reading will tell
    }
#endif
}

/// To another reader, "Content-Length : 5" may be a length, and what follows a body.
void refuseAmbiguousNames(const HTTPRequest &request)
{
    const auto hasBlank
        = [](const auto &header) { return header.first.find_first_of(" \t") != std::string::npos; };
    if (std::any_of(request.begin(), request.end(), hasBlank))
        throw HttpError(Status::HTTP_BAD_REQUEST, "The name of a header has no blank in it");
}

} // namespace

HttpError cutOff(const Watchdog::Watch &watch)
{
    if (watch.stopping())
        return {Status::HTTP_SERVICE_UNAVAILABLE, "The receiver stops before the request has arrived"};
    return {Status::HTTP_REQUEST_TIMEOUT, "The request took too long to arrive"};
}

RequestBody::RequestBody(Poco::Net::HTTPServerRequestImpl &request,
                         Poco::Net::HTTPServerResponseImpl &response, Watchdog::Watch &watch,
                         std::uint64_t leastRate)
    : m_stream(request.stream())
    , m_socket(request.socket())
    , m_response(response)
    , m_watch(watch)
    , m_leastRate(leastRate)
    , m_expectsContinue(request.getExpectContinue())
    , m_isChunked(request.has(HTTPRequest::TRANSFER_ENCODING))
{
    refuseAmbiguousNames(request);
    if (!m_isChunked)
        checkLength(request);
    else if (request.has(HTTPRequest::CONTENT_LENGTH))
        throw HttpError(Status::HTTP_BAD_REQUEST,
                        "A request has a Content-Length or a Transfer-Encoding, not both");
    else if (Poco::icompare(request.getTransferEncoding(), HTTPRequest::CHUNKED_TRANSFER_ENCODING) != 0)
        throw HttpError(Status::HTTP_NOT_IMPLEMENTED, "The only Transfer-Encoding understood is \"chunked\"");
}

void RequestBody::checkLength(const HTTPRequest &request)
{
    const auto isLength
        = [](const auto &header) { return Poco::icompare(header.first, HTTPRequest::CONTENT_LENGTH) == 0; };
    const auto count = std::count_if(request.begin(), request.end(), isLength);
    if (count == 0 && request.getMethod() == HTTPRequest::HTTP_POST)
        throw HttpError(Status::HTTP_LENGTH_REQUIRED, "A POST request needs a Content-Length or chunks");
    const std::string text = request.get(HTTPRequest::CONTENT_LENGTH, "0");
    const bool isNumber = text.find_first_not_of("0123456789") == text.npos;
    if (count > 1 || !isNumber || !Poco::NumberParser::tryParseUnsigned64(text, m_length))
        throw HttpError(Status::HTTP_BAD_REQUEST, "The Content-Length must be one number of bytes");
    m_atEnd = m_length == 0;
}

void RequestBody::setLimit(std::uint64_t bytes, const std::string &what, std::uint64_t beside)
{
    m_limit = bytes + beside;
    m_namedLimit = bytes;
    m_what = what;
    if (m_length > m_limit)
        failTooBig();
    m_watch.extend(std::chrono::seconds(m_length / m_leastRate));
}

std::size_t RequestBody::read(char *buffer, std::size_t size)
{
    const std::size_t count = m_atEnd ? 0 : readStream(buffer, size);
    if (m_read > m_limit)
        failTooBig();
    return count;
}

std::size_t RequestBody::readStream(char *buffer, std::size_t size)
{
    if (m_expectsContinue)
        m_response.sendContinue();
    m_expectsContinue = false;
    if (m_watch.expired())
        failTruncated();
    acknowledgeAtOnce(m_socket);
    const auto count
        = static_cast<std::size_t>(m_stream.read(buffer, static_cast<std::streamsize>(size)).gcount());
    m_read += count;
    m_atEnd = m_isChunked ? count < size : m_read == m_length;
    if (count < size && (m_watch.expired() || !m_atEnd))
        failTruncated();
    return count;
}

std::string RequestBody::readAll(std::uint64_t limit, const std::string &what)
{
    setLimit(limit, what);
    std::string text;
    std::vector<char> block(blockSize);
    while (const std::size_t count = read(block.data(), block.size()))
        text.append(block.data(), count);
    return text;
}

std::optional<std::string> RequestBody::readWithin(MemoryBudget::Share &share)
{
    std::string text;
    std::vector<char> block(blockSize);
    while (const std::size_t count = read(block.data(), block.size())) {
        if (!share.grow(count))
            return std::nullopt;
        text.append(block.data(), count);
    }
    return text;
}

void RequestBody::drain()
{
    std::vector<char> block(blockSize);
    // A client that still waits to be told to go on sends nothing.
    while (!m_atEnd && !m_expectsContinue && readStream(block.data(), block.size()) > 0) { }
}

void RequestBody::failTooBig() const
{
    throw HttpError(Status::HTTP_REQUEST_ENTITY_TOO_LARGE,
                    m_what + " is larger than the limit of " + std::to_string(m_namedLimit) + " bytes");
}

void RequestBody::failTruncated() const
{
    if (m_watch.expired())
        throw cutOff(m_watch);
    throw HttpError(Status::HTTP_BAD_REQUEST,
                    "The body ended after " + std::to_string(m_read) + " of " + std::to_string(m_length)
                        + " bytes");
}

} // namespace wexel::receiver

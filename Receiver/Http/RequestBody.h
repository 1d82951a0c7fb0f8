#pragma once

#include "Http/Watchdog.h"

#include <Poco/Net/HTTPServerRequestImpl.h>
#include <Poco/Net/HTTPServerResponseImpl.h>

#include <cstdint>
#include <string>

namespace wexel::receiver {

/// The body of a request as it arrives: with a Content-Length or in chunks, behind "Expect: 100-continue" or not, never more
/// than the handler's limit, never slower than the watch allows. Faults come out as HttpError: 400, 408, 411, 413, 501.
class RequestBody
{
public:
    /// Refuses framing that two readers could understand differently.
    RequestBody(Poco::Net::HTTPServerRequestImpl &request, Poco::Net::HTTPServerResponseImpl &response,
                const Watchdog::Watch &watch);

    /// \a what names the body in the error's text, as in "The file". To be called before reading.
    void setLimit(std::uint64_t bytes, const std::string &what);

    /// How many bytes the body has at most; the limit if it comes in chunks.
    std::uint64_t longest() const { return m_isChunked ? m_limit : m_length; }

    /// Reads up to \a size bytes and returns how many; 0 at the end of the body.
    std::size_t read(char *buffer, std::size_t size);

    /// The whole body as a text.
    std::string readAll();
    /// The same with a limit set.
    std::string readAll(std::uint64_t limit, const std::string &what);

    /// Reads and drops what is left, for as long as the watch allows, so that the client gets to read the answer.
    void drain();

    /// True if the connection can carry another request after this one.
    bool leavesConnectionClean() const { return m_atEnd && !m_isChunked; }

    std::uint64_t size() const { return m_read; }

private:
    void checkLength(const Poco::Net::HTTPRequest &request);
    [[noreturn]] void failTooBig() const;
    [[noreturn]] void failTruncated() const;
    std::size_t readStream(char *buffer, std::size_t size);

    std::istream &m_stream;
    Poco::Net::StreamSocket &m_socket;
    Poco::Net::HTTPServerResponseImpl &m_response;
    const Watchdog::Watch &m_watch;
    bool m_expectsContinue;
    bool m_isChunked;
    std::uint64_t m_length = 0; ///< of a body that is not chunked
    std::uint64_t m_limit = 0;
    std::string m_what;
    std::uint64_t m_read = 0;
    bool m_atEnd = false;
};

} // namespace wexel::receiver

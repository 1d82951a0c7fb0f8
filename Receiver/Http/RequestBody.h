#pragma once

#include "Http/HttpError.h"
#include "Http/MemoryBudget.h"
#include "Http/Watchdog.h"

#include <Poco/Net/HTTPServerRequestImpl.h>
#include <Poco/Net/HTTPServerResponseImpl.h>

#include <cstdint>
#include <optional>
#include <string>

namespace wexel::receiver {

/// What a request is refused with that the watchdog has cut off: 408, or 503 if that is because the server stops.
HttpError cutOff(const Watchdog::Watch &watch);

/// The body of a request as it arrives: with a Content-Length or in chunks, behind "Expect: 100-continue" or not, never more
/// than the handler's limit, and in the time that the watch allows; a body that is wanted has a second more for each
/// \a leastRate bytes that its length announces. Faults come out as HttpError: 400, 408, 411, 413, 501, 503.
class RequestBody
{
public:
    /// Refuses framing that two readers could understand differently.
    RequestBody(Poco::Net::HTTPServerRequestImpl &request, Poco::Net::HTTPServerResponseImpl &response,
                Watchdog::Watch &watch, std::uint64_t leastRate);

    /// \a what names the body in the error's text, as in "The file", and \a bytes the limit that somebody has set; \a beside
    /// are taken beyond it, for what frames the content. To be called before reading.
    void setLimit(std::uint64_t bytes, const std::string &what, std::uint64_t beside = 0);

    /// Reads up to \a size bytes and returns how many; 0 at the end of the body.
    std::size_t read(char *buffer, std::size_t size);

    /// The whole body as a text.
    std::string readAll(std::uint64_t limit, const std::string &what);
    /// The same, counted in \a share as it arrives; nothing if that can't grow any more. To be called after setLimit().
    std::optional<std::string> readWithin(MemoryBudget::Share &share);

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
    Watchdog::Watch &m_watch;
    std::uint64_t m_leastRate; ///< bytes a second
    bool m_expectsContinue;
    bool m_isChunked;
    std::uint64_t m_length = 0; ///< of a body that is not chunked
    std::uint64_t m_limit = 0; ///< of the whole body
    std::uint64_t m_namedLimit = 0;
    std::string m_what;
    std::uint64_t m_read = 0;
    bool m_atEnd = false;
};

} // namespace wexel::receiver

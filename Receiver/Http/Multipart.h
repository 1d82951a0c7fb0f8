#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace wexel::receiver {

/// The boundary in a Content-Type header, or nothing if it is not multipart/form-data with a boundary of 1 to 70 characters.
/// A second media type behind a comma, as clients produce that add a value to the header, does not belong to the boundary.
std::optional<std::string> multipartBoundary(const std::string &contentType);

/// Reads the parts of a multipart/form-data body one after the other, holding no more than a block of it in memory. A body
/// that is not well-formed, or ends too early, gives an HttpError 400.
/// Written for us since Poco's reader adds a byte to a content that ends in CR LF and two hyphens.
class Multipart
{
public:
    /// Fills a buffer of the given size and returns how many bytes it wrote, 0 at the end.
    using Source = std::function<std::size_t(char *, std::size_t)>;

    struct Part {
        std::string name;
        std::string fileName; ///< hostile; with the quotes that the client put in it unescaped
    };

    Multipart(Source source, const std::string &boundary);

    /// The next part, whatever is left of the one before; nothing after the last.
    std::optional<Part> nextPart();

    /// The next piece of the part's content, valid until the next call; empty at its end.
    std::string_view readContent();

private:
    bool fill();
    void require(std::size_t count);
    std::string readHeader();

    Source m_source;
    std::string m_delimiter;
    std::string m_buffer;
    std::size_t m_position = 0; ///< of the first byte in m_buffer that was not handed out
};

} // namespace wexel::receiver

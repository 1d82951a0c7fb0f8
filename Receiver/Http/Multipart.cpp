#include "Http/Multipart.h"

#include "BlockSize.h"
#include "Http/HttpError.h"

#include <Poco/String.h>

#include <algorithm>

namespace wexel::receiver {

namespace {

constexpr std::size_t maximumHeaderSize = 16 * 1024;

[[noreturn]] void failMultipart(const std::string &text)
{
    throw HttpError(Status::HTTP_BAD_REQUEST, "The multipart body is malformed: " + text);
}

/// The value of \a key in a Content-Disposition. It ends at the last quote that ends a parameter, since clients put names
/// with quotes in them as they are.
std::string parameter(const std::string &header, const std::string &key)
{
    const std::string opening = "; " + key + "=\"";
    const std::size_t start = header.find(opening);
    if (start == header.npos)
        return {};
    const std::string rest = header.substr(start + opening.size());
    const std::size_t next = key == "name" ? rest.find("\";") : rest.npos;
    return rest.substr(0, next == rest.npos ? rest.rfind('"') : next);
}

/// The line "Content-Disposition: ..." of a part's header. A file name may have broken it: what is not the start of another
/// Content- line belongs to it.
std::string disposition(const std::string &header)
{
    const std::string lower = Poco::toLower(header);
    const std::size_t start = lower.find("content-disposition:");
    if (start == lower.npos)
        failMultipart("a part has no Content-Disposition");
    const std::size_t next = lower.find("\r\ncontent-", start);
    return header.substr(start, next == lower.npos ? next : next - start);
}

} // namespace

std::optional<std::string> multipartBoundary(const std::string &contentType)
{
    const std::string lower = Poco::toLower(contentType);
    const std::size_t key = lower.find("boundary=");
    if (!lower.starts_with("multipart/form-data") || key == lower.npos)
        return std::nullopt;
    std::string value = contentType.substr(key + 9);
    if (value.starts_with('"'))
        value = value.substr(1, value.find('"', 1) - 1);
    else
        value = value.substr(0, value.find_first_of(",; \t"));
    return value.empty() || value.size() > 70 ? std::nullopt : std::optional(value);
}

Multipart::Multipart(Source source, const std::string &boundary)
    : m_source(std::move(source))
    , m_delimiter("\r\n--" + boundary)
    , m_buffer("\r\n") // the first delimiter has no line before it
{
}

std::optional<Multipart::Part> Multipart::nextPart()
{
    while (!readContent().empty()) { }
    m_position += m_delimiter.size();
    require(2);
    if (m_buffer.compare(m_position, 2, "--") == 0)
        return std::nullopt;
    const std::string field = disposition(readHeader());
    return Part{parameter(field, "name"), parameter(field, "filename")};
}

std::string_view Multipart::readContent()
{
    for (;;) {
        const std::size_t found = m_buffer.find(m_delimiter, m_position);
        // The last bytes may be the start of a delimiter.
        const std::size_t end = found != m_buffer.npos
            ? found
            : m_buffer.size() - std::min(m_buffer.size() - m_position, m_delimiter.size() - 1);
        if (end > m_position || found != m_buffer.npos) {
            const std::string_view content = std::string_view(m_buffer).substr(m_position, end - m_position);
            m_position = end;
            return content;
        }
        if (!fill())
            failMultipart("it ends before its closing boundary");
    }
}

std::string Multipart::readHeader()
{
    for (;;) {
        const std::size_t end = m_buffer.find("\r\n\r\n", m_position);
        if (end != m_buffer.npos) {
            std::string header = m_buffer.substr(m_position, end - m_position);
            m_position = end + 4;
            return header;
        }
        if (m_buffer.size() - m_position > maximumHeaderSize)
            failMultipart("the header of a part is longer than " + std::to_string(maximumHeaderSize)
                          + " bytes");
        if (!fill())
            failMultipart("it ends in the header of a part");
    }
}

void Multipart::require(std::size_t count)
{
    while (m_buffer.size() - m_position < count) {
        if (!fill())
            failMultipart("it ends in a boundary");
    }
}

bool Multipart::fill()
{
    m_buffer.erase(0, m_position);
    m_position = 0;
    const std::size_t kept = m_buffer.size();
    m_buffer.resize(kept + blockSize);
    const std::size_t count = m_source(m_buffer.data() + kept, blockSize);
    m_buffer.resize(kept + count);
    return count > 0;
}

} // namespace wexel::receiver

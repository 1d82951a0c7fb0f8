#include "Text.h"

#include <Poco/Ascii.h>
#include <Poco/JSON/Stringifier.h>
#include <Poco/NumberFormatter.h>
#include <Poco/NumberParser.h>
#include <Poco/TextIterator.h>
#include <Poco/UTF8Encoding.h>

#include <algorithm>
#include <sstream>

namespace wexel::receiver {

std::string percentDecoded(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '%' && i + 2 < text.size() && Poco::Ascii::isHexDigit(text[i + 1])
            && Poco::Ascii::isHexDigit(text[i + 2]);
        if (isEscape) {
            result += static_cast<char>(Poco::NumberParser::parseHex(std::string(text.substr(i + 1, 2))));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string percentEncoded(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (Poco::Ascii::isAlphaNumeric(static_cast<unsigned char>(c))
            || std::string_view("-._~").find(c) != std::string_view::npos)
            result += c;
        else
            result += '%' + Poco::NumberFormatter::formatHex(static_cast<unsigned char>(c), 2);
    }
    return result;
}

std::map<std::string, std::string> formFields(std::string_view body)
{
    std::map<std::string, std::string> fields;
    for (const std::string_view pair : split(body, '&')) {
        const std::size_t equals = pair.find('=');
        const std::string_view value = equals == pair.npos ? std::string_view() : pair.substr(equals + 1);
        fields.emplace(percentDecoded(pair.substr(0, equals)), percentDecoded(value));
    }
    return fields;
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == text.npos)
            return pieces;
        text.remove_prefix(end + 1);
    }
}

std::string jsonString(const std::string &text)
{
    std::ostringstream stream;
    Poco::JSON::Stringifier::formatString(text, stream);
    return stream.str();
}

bool isUtf8(const std::string &text)
{
    const Poco::UTF8Encoding encoding;
    const Poco::TextIterator end(text);
    for (Poco::TextIterator it(text, encoding); it != end; ++it) {
        if (*it < 0)
            return false;
    }
    return true;
}

std::string storable(std::string text)
{
    const bool utf8 = isUtf8(text);
    std::erase_if(text, [utf8](char c) { return c == '\0' || (!utf8 && (c & 0x80) != 0); });
    return text;
}

bool isId(std::string_view text)
{
    constexpr std::size_t longest = 64;
    return !text.empty() && text.size() <= longest && std::all_of(text.begin(), text.end(), [](char c) {
        return Poco::Ascii::isAlphaNumeric(static_cast<unsigned char>(c));
    });
}

std::string cleanFileName(std::string name)
{
    const bool utf8 = isUtf8(name);
    std::replace_if(
        name.begin(), name.end(),
        [utf8](char c) { return (c >= 0 && c < 0x20) || c == 0x7f || (!utf8 && (c & 0x80) != 0); }, '_');
    return name;
}

} // namespace wexel::receiver

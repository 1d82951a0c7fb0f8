#include "ArchiveNames.h"

#include "Text.h"

#include <Poco/TextConverter.h>
#include <Poco/TextIterator.h>
#include <Poco/UTF8Encoding.h>
#include <Poco/UTF8String.h>

#include <algorithm>
#include <array>

namespace wexel::receiver {

namespace {

constexpr std::size_t longestStem = 120; // bytes
constexpr std::size_t longestEnding = 20; // bytes

/// Characters that turn the direction of text around, and so may show "exe" as the beginning of a name.
bool turnsText(int character)
{
    return (character >= 0x202a && character <= 0x202e) || (character >= 0x2066 && character <= 0x2069)
        || character == 0x200e || character == 0x200f || character == 0x061c;
}

std::string withoutSpecialCharacters(const std::string &name)
{
    const Poco::UTF8Encoding encoding;
    std::string result;
    const Poco::TextIterator end(name);
    for (Poco::TextIterator it(name, encoding); it != end; ++it) {
        const bool isSpecial = turnsText(*it)
            || (*it < 0x80
                && std::string_view("<>:\"/\\|?*").find(static_cast<char>(*it)) != std::string_view::npos);
        std::array<unsigned char, 4> bytes;
        const int count = encoding.convert(isSpecial ? '_' : *it, bytes.data(), bytes.size());
        result.append(bytes.begin(), bytes.begin() + count);
    }
    return result;
}

std::string cut(std::string text, std::size_t longest)
{
    if (text.size() <= longest)
        return text;
    while (longest > 0 && (static_cast<unsigned char>(text[longest]) & 0xc0) == 0x80)
        --longest;
    return text.substr(0, longest);
}

/// Names of devices on Windows, with any ending.
bool isReserved(const std::string &stem)
{
    const std::string lower = Poco::UTF8::toLower(stem.substr(0, stem.find('.')));
    const bool isNumbered = lower.size() == 4 && (lower.starts_with("com") || lower.starts_with("lpt"));
    return lower == "con" || lower == "prn" || lower == "aux" || lower == "nul" || isNumbered;
}

struct Name {
    std::string stem;
    std::string ending; ///< with its dot
};

Name cleaned(const std::string &name)
{
    std::string text = withoutSpecialCharacters(cleanFileName(name));
    text.erase(0, text.find_first_not_of(" ."));
    text.erase(text.find_last_not_of(" .") + 1);
    const std::size_t dot = text.rfind('.');
    const bool hasEnding = dot != text.npos && text.size() - dot <= longestEnding;
    Name result
        = {cut(hasEnding ? text.substr(0, dot) : text, longestStem), hasEnding ? text.substr(dot) : ""};
    if (result.stem.empty())
        result.stem = "file";
    if (isReserved(result.stem))
        result.stem.insert(0, "_");
    return result;
}

} // namespace

std::string ArchiveNames::take(const std::string &name)
{
    const Name parts = cleaned(name);
    std::string candidate = parts.stem + parts.ending;
    for (int number = 2; !m_taken.insert(Poco::UTF8::toLower(candidate)).second; ++number)
        candidate = parts.stem + " (" + std::to_string(number) + ")" + parts.ending;
    return candidate;
}

} // namespace wexel::receiver

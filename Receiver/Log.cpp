#include "Log.h"

#include <Poco/DateTimeFormatter.h>
#include <Poco/NumberFormatter.h>
#include <Poco/Timestamp.h>

#include <algorithm>
#include <unistd.h>

namespace wexel::receiver {

namespace {

constexpr std::size_t maximumValueLength = 300;

bool isPlain(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')
        || std::string_view("-_.:/[]@").find(c) != std::string_view::npos;
}

std::string value(std::string_view text)
{
    const bool cut = text.size() > maximumValueLength;
    text = text.substr(0, maximumValueLength);
    if (!cut && !text.empty() && std::all_of(text.begin(), text.end(), isPlain))
        return std::string(text);
    return '"' + escaped(text) + (cut ? "...\"" : "\"");
}

} // namespace

std::string escaped(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        if (c >= 0x20 && c < 0x7f)
            result += c;
        else
            result += "\\x" + Poco::NumberFormatter::formatHex(static_cast<unsigned char>(c), 2);
    }
    return result;
}

void logEvent(std::string_view event, std::initializer_list<std::pair<std::string_view, std::string>> fields)
{
    std::string line = "time=" + Poco::DateTimeFormatter::format(Poco::Timestamp(), "%Y-%m-%dT%H:%M:%S.%iZ")
        + " event=" + std::string(event);
    for (const auto &[key, text] : fields) {
        if (text.empty())
            continue;
        line += ' ' + std::string(key) + '=' + value(text);
    }
    line += '\n';
    // One write per line keeps the lines of several threads apart; a log that can't be written must not stop the service.
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
}

} // namespace wexel::receiver

#include "Http/Query.h"

#include "Http/HttpError.h"
#include "Text.h"

#include <algorithm>
#include <charconv>

namespace wexel::receiver {

namespace {

[[noreturn]] void failQuery(const std::string &text)
{
    throw HttpError(Status::HTTP_BAD_REQUEST, text);
}

std::string decoded(std::string_view piece)
{
    std::string text(piece);
    std::replace(text.begin(), text.end(), '+', ' ');
    return percentDecoded(text);
}

bool isText(const std::string &value)
{
    return isUtf8(value) && value.find('\0') == value.npos;
}

} // namespace

Query::Query(const std::string &uri, std::initializer_list<std::string> known)
{
    const std::size_t mark = uri.find('?');
    if (mark == uri.npos)
        return;
    for (const std::string_view pair : split(std::string_view(uri).substr(mark + 1), '&')) {
        if (pair.empty())
            continue;
        const std::size_t equals = std::min(pair.find('='), pair.size());
        const std::string name = decoded(pair.substr(0, equals));
        const std::string value = decoded(pair.substr(std::min(equals + 1, pair.size())));
        if (std::find(known.begin(), known.end(), name) == known.end())
            failQuery("The query has no field \"" + cleanFileName(name) + "\"");
        if (!isText(value))
            failQuery("Expected UTF-8 text under \"" + name + "\"");
        if (!m_fields.emplace(name, value).second)
            failQuery("The field \"" + name + "\" is given twice");
    }
}

std::string Query::text(const std::string &name, std::size_t longest) const
{
    const auto field = m_fields.find(name);
    if (field == m_fields.end())
        return {};
    if (field->second.size() > longest)
        failQuery("Expected under \"" + name + "\" a text of at most " + std::to_string(longest) + " bytes");
    return field->second;
}

std::optional<std::int64_t> Query::number(const std::string &name, std::int64_t least,
                                          std::int64_t most) const
{
    const auto field = m_fields.find(name);
    if (field == m_fields.end() || field->second.empty())
        return std::nullopt;
    const std::string &text = field->second;
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least || number > most)
        failQuery("Expected under \"" + name + "\" a number from " + std::to_string(least) + " to "
                  + std::to_string(most));
    return number;
}

} // namespace wexel::receiver

#include <algorithm>

#include "Platform/UrlSession.h"

namespace wexel {

namespace {

auto find(auto &headers, const QByteArray &name)
{
    return std::find_if(headers.begin(), headers.end(), [&](const auto &header) {
        return header.first.compare(name, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

void UrlRequest::addValue(const QByteArray &value, const QByteArray &header)
{
    const auto found = find(m_headers, header);
    if (found == m_headers.end())
        m_headers.append({header, value});
    else
        found->second += ',' + value;
}

void UrlRequest::setValue(const QByteArray &value, const QByteArray &header)
{
    const auto found = find(m_headers, header);
    if (found == m_headers.end())
        m_headers.append({header, value});
    else
        found->second = value;
}

std::optional<QByteArray> UrlRequest::value(const QByteArray &header) const
{
    const auto found = find(m_headers, header);
    return found == m_headers.end() ? std::nullopt : std::optional(found->second);
}

} // namespace wexel

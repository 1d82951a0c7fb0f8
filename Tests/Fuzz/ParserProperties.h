#pragma once

#include "BundleId.h"
#include "Http/Cookies.h"
#include "Http/HttpError.h"
#include "Http/Multipart.h"
#include "Http/Query.h"
#include "ReportDocument.h"
#include "Text.h"
#include "Thumbnail.h"
#include "Transfer/Records.h"

#include <algorithm>
#include <string>

namespace wexel::receiver {

/// The parts of a multipart body as one text, or how it failed, read in pieces of \a pieceSize bytes.
inline std::string multipartText(std::string_view body, const std::string &boundary, std::size_t pieceSize)
{
    std::string text;
    const auto source = [&](char *buffer, std::size_t size) {
        const std::size_t count = std::min({size, pieceSize, body.size()});
        std::copy_n(body.begin(), count, buffer);
        body.remove_prefix(count);
        return count;
    };
    try {
        Multipart multipart(source, boundary);
        while (const auto part = multipart.nextPart()) {
            text += "part " + part->name + ' ' + part->fileName + '\n';
            for (auto piece = multipart.readContent(); !piece.empty(); piece = multipart.readContent())
                text += piece;
        }
    } catch (const HttpError &error) {
        return error.what();
    }
    return text;
}

/// The first line is the Content-Type, the rest the body.
inline const char *brokenMultipartProperty(std::string_view bytes)
{
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    const auto boundary = multipartBoundary(std::string(bytes.substr(0, end)));
    if (!boundary)
        return nullptr;
    if (boundary->empty() || boundary->size() > 70)
        return "a boundary has 1 to 70 characters";
    const std::string_view body = bytes.substr(std::min(end + 1, bytes.size()));
    const bool isSame = multipartText(body, *boundary, body.size()) == multipartText(body, *boundary, 3);
    return isSame ? nullptr : "a body reads the same however it arrives";
}

inline const char *brokenReportProperty(std::string_view bytes)
{
    try {
        const ReportDocument document = readReportDocument(std::string(bytes));
        return document.screenshotUrl.size() <= bytes.size() ? nullptr : "an address is part of the report";
    } catch (const HttpError &error) {
        return error.status() == Status::HTTP_BAD_REQUEST ? nullptr
                                                          : "a report that can't be read is malformed";
    }
}

inline const char *brokenFormProperty(std::string_view bytes)
{
    std::size_t length = 0;
    for (const auto &[name, value] : formFields(bytes))
        length += name.size() + value.size();
    return length <= bytes.size() ? nullptr : "decoding adds nothing";
}

inline const char *brokenQueryProperty(std::string_view bytes)
{
    try {
        const Query query("/?" + std::string(bytes), {"search", "page"});
        const auto page = query.number("page", 1, 1000);
        if (page && (*page < 1 || *page > 1000))
            return "a number is within its bounds";
        const std::string search = query.text("search", 200);
        return isUtf8(search) && search.size() <= 200 ? nullptr : "a query's text is UTF-8, and not too long";
    } catch (const HttpError &) {
        return nullptr;
    }
}

inline const char *brokenCookieProperty(std::string_view bytes)
{
    Poco::Net::HTTPRequest header;
    header.set("Cookie", std::string(bytes));
    const std::string value = cookieValue(header, "wexel_session");
    const bool isPart = bytes.find(value) != bytes.npos && value.find(';') == value.npos;
    return isPart ? nullptr : "a cookie's value is one piece of the header";
}

inline const char *brokenTextProperty(std::string_view bytes)
{
    const std::string text(bytes);
    if (percentDecoded(percentEncoded(text)) != text)
        return "what was encoded decodes to itself";
    const std::string name = cleanFileName(text);
    const auto isControl = [](char c) { return (c >= 0 && c < 0x20) || c == 0x7f; };
    if (!isUtf8(name) || std::any_of(name.begin(), name.end(), isControl))
        return "a file name is UTF-8 without control characters";
    return bundleIdFault(text).empty() && text.find('/') != text.npos ? "a bundle id is no path" : nullptr;
}

inline const char *brokenPictureProperty(std::string_view bytes)
{
    const auto thumbnail = jpegThumbnail(bytes);
    return !thumbnail || jpegThumbnail(*thumbnail) ? nullptr : "a thumbnail is a picture itself";
}

/// Text that \a read takes and \a write gives back is a record; it must read as itself.
template <typename Read, typename Write>
const char *brokenRecordProperty(const std::string &bytes, const Read &read, const Write &write)
{
    std::string text;
    try {
        text = write(read(bytes));
    } catch (const HttpError &) {
        return nullptr;
    } catch (const Poco::Exception &) {
        return nullptr;
    }
    return write(read(text)) == text ? nullptr : "a record that was read is written as one";
}

inline const char *brokenRecordsProperty(std::string_view bytes)
{
    const std::string text(bytes);
    const char *report = brokenRecordProperty(
        text, readReportRecord, [](const ReportRecord &record) { return recordText(1, record); });
    return report ? report
                  : brokenRecordProperty(text, readApplicationRecord, [](const ApplicationOverview &record) {
                        return recordText(record);
                    });
}

/// What holds for any bytes given to what reads requests and an export's records; the first byte says which reader gets the rest. Returns the
/// property that does not, or null.
inline const char *brokenParserProperty(std::string_view bytes)
{
    if (bytes.empty())
        return nullptr;
    const std::string_view rest = bytes.substr(1);
    switch (bytes.front()) {
    case 'm':
        return brokenMultipartProperty(rest);
    case 'r':
        return brokenReportProperty(rest);
    case 'f':
        return brokenFormProperty(rest);
    case 'q':
        return brokenQueryProperty(rest);
    case 'c':
        return brokenCookieProperty(rest);
    case 'e':
        return brokenRecordsProperty(rest);
    case 'j':
        return brokenPictureProperty(rest);
    default:
        return brokenTextProperty(rest);
    }
}

} // namespace wexel::receiver

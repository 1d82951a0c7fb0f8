#include "Handlers/FileDownloadHandler.h"

#include "Handlers/StoredContent.h"
#include "Text.h"

#include <algorithm>

namespace wexel::receiver {

namespace {

/// Both forms of the name (RFC 6266): a plain one for old readers and the exact one.
std::string disposition(const std::string &kind, const std::string &name)
{
    std::string plain = name;
    std::replace_if(
        plain.begin(), plain.end(),
        [](char c) {
            return c < 0x20 || c >= 0x7f || std::string_view("\"\\/%").find(c) != std::string_view::npos;
        },
        '_');
    return kind + "; filename=\"" + plain + "\"; filename*=UTF-8''" + percentEncoded(name);
}

} // namespace

Answer FileDownloadHandler::handle(Request &request)
{
    const std::optional<StoredFile> file = m_store.file(request.parameter);
    if (!file)
        throw HttpError(Status::HTTP_NOT_FOUND, "There is no such file");
    const bool isImage = file->contentType.starts_with("image/");
    Answer answer = {.contentType = file->contentType, .file = openContent(m_files, *file)};
    answer.headers = {{"Content-Disposition", disposition(isImage ? "inline" : "attachment", file->name)},
                      {"Content-Security-Policy", "default-src 'none'; sandbox"}};
    return answer;
}

} // namespace wexel::receiver

#include "Handlers/FileUploadHandler.h"

#include "Log.h"
#include "Secrets.h"
#include "Storage/Database.h"

namespace wexel::receiver {

namespace {

constexpr std::size_t maximumNameLength = 1024;
constexpr std::uint64_t multipartOverhead = 64 * 1024; // headers, boundaries and small fields beside the file
constexpr std::size_t headSize = 16;

/// The type that the file will be served with: the raster images that browsers show safely, told by their first bytes, as
/// what a client claims proves nothing.
std::string contentTypeOf(std::string_view head)
{
    if (head.starts_with("\x89PNG\r\n\x1a\n"))
        return "image/png";
    if (head.starts_with("\xff\xd8\xff"))
        return "image/jpeg";
    if (head.starts_with("GIF87a") || head.starts_with("GIF89a"))
        return "image/gif";
    if (head.starts_with("RIFF") && head.substr(std::min<std::size_t>(8, head.size())).starts_with("WEBP"))
        return "image/webp";
    return "application/octet-stream";
}

} // namespace

Answer FileUploadHandler::handle(Request &request)
{
    const auto boundary = multipartBoundary(request.header.getContentType());
    if (!boundary)
        throw HttpError(Status::HTTP_BAD_REQUEST,
                        "Expected the Content-Type multipart/form-data; boundary=...");
    request.body.setLimit(m_maximumSize, "The upload", multipartOverhead);
    Multipart multipart([&](char *buffer, std::size_t size) { return request.body.read(buffer, size); },
                        *boundary);
    std::optional<Upload> upload;
    receiveParts(multipart, upload);
    if (!upload)
        throw HttpError(Status::HTTP_BAD_REQUEST, "Expected a part named \"file\"");
    const StoredFile stored = publish(*upload);
    logEvent("file",
             {{"name", stored.name}, {"size", std::to_string(stored.size)}, {"sha256", stored.sha256}});
    return jsonAnswer("{\"url\":" + jsonString(m_baseUrl + stored.id) + "}");
}

void FileUploadHandler::receiveParts(Multipart &multipart, std::optional<Upload> &upload) const
{
    while (const auto part = multipart.nextPart()) {
        if (part->name != "file")
            continue;
        if (upload)
            throw HttpError(Status::HTTP_BAD_REQUEST, "Expected one part named \"file\", not two");
        if (part->fileName.size() > maximumNameLength)
            throw HttpError(Status::HTTP_BAD_REQUEST,
                            "The file name is longer than " + std::to_string(maximumNameLength) + " bytes");
        const std::string id = randomId();
        upload = {id, m_files.receive(id), cleanFileName(part->fileName)};
        receive(multipart, *upload);
    }
}

void FileUploadHandler::receive(Multipart &multipart, Upload &upload) const
{
    for (std::string_view piece = multipart.readContent(); !piece.empty(); piece = multipart.readContent()) {
        upload.head += piece.substr(0, headSize - std::min(headSize, upload.head.size()));
        if (upload.file->size() + piece.size() > m_maximumSize)
            throw HttpError(Status::HTTP_REQUEST_ENTITY_TOO_LARGE,
                            "The file is larger than the limit of " + std::to_string(m_maximumSize)
                                + " bytes");
        upload.file->write(piece);
    }
}

/// The bytes first: a crash leaves bytes without a row, which are swept, and never the reverse.
StoredFile FileUploadHandler::publish(Upload &upload) const
{
    const std::string sha256 = upload.file->publish();
    StoredFile stored = {upload.id,
                         sha256,
                         upload.name,
                         contentTypeOf(upload.head),
                         upload.file->size(),
                         currentMilliseconds(),
                         upload.id};
    m_store.addFile(stored);
    return stored;
}

} // namespace wexel::receiver

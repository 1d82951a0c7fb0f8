#include "Handlers/StoredContent.h"

#include "Log.h"

namespace wexel::receiver {

namespace {

[[noreturn]] void failLost(const StoredFile &file)
{
    logEvent("file_damaged", {{"sha256", file.sha256}, {"expected_size", std::to_string(file.size)}});
    throw HttpError(Status::HTTP_INTERNAL_SERVER_ERROR, "The bytes of this file are lost");
}

} // namespace

FileContent openContent(const FileStore &files, const StoredFile &file)
{
    FileContent content = {files.open(file.location, file.size), file.size};
    if (!content.stream)
        failLost(file);
    return content;
}

std::string readContent(const FileStore &files, const StoredFile &file)
{
    FileContent content = openContent(files, file);
    std::string bytes(file.size, '\0');
    if (!content.stream->read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        failLost(file);
    return bytes;
}

} // namespace wexel::receiver

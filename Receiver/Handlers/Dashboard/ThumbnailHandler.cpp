#include "Handlers/Dashboard/ThumbnailHandler.h"

#include "Handlers/Dashboard/ReportAddress.h"
#include "Handlers/StoredContent.h"
#include "Thumbnail.h"

#include <memory>

namespace wexel::receiver {

namespace {

constexpr std::uint64_t largestToDecode = 16 * 1024 * 1024; // bytes
constexpr std::uint64_t largestAsItIs = 512 * 1024; // bytes

[[noreturn]] void failNoThumbnail()
{
    throw HttpError(Status::HTTP_NOT_FOUND, "There is no thumbnail of this report");
}

} // namespace

Answer ThumbnailHandler::handle(Request &request)
{
    const std::optional<StoredFile> screenshot = m_store.filesOf(reportIdFrom(request.parameter)).screenshot;
    if (!screenshot || !screenshot->contentType.starts_with("image/"))
        failNoThumbnail();
    Answer answer = {.contentType = screenshot->contentType,
                     .headers = {{"Cache-Control", "private, max-age=31536000, immutable"}}};
    if (screenshot->contentType == "image/jpeg")
        answer.body = thumbnailOf(*screenshot);
    else if (screenshot->size <= largestAsItIs)
        answer.body = readContent(m_files, *screenshot);
    else
        failNoThumbnail();
    return answer;
}

std::string ThumbnailHandler::thumbnailOf(const StoredFile &screenshot)
{
    if (screenshot.size > largestToDecode)
        failNoThumbnail();
    m_places.acquire();
    const std::unique_ptr<std::counting_semaphore<atOnce>, void (*)(std::counting_semaphore<atOnce> *)> place(
        &m_places, [](auto *places) { places->release(); });
    std::optional<std::string> thumbnail = jpegThumbnail(readContent(m_files, screenshot));
    if (!thumbnail)
        failNoThumbnail();
    return std::move(*thumbnail);
}

} // namespace wexel::receiver

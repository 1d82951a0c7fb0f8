#include "Handlers/Dashboard/ThumbnailHandler.h"

#include "Handlers/Dashboard/ReportAddress.h"
#include "Handlers/StoredContent.h"
#include "Thumbnail.h"

#include <chrono>
#include <memory>

namespace wexel::receiver {

namespace {

constexpr std::uint64_t largestToDecode = 16 * 1024 * 1024; // bytes
constexpr std::chrono::seconds longestWait{10};
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
    const std::string tag = '"' + screenshot->sha256 + '"';
    Answer answer = {.contentType = screenshot->contentType,
                     .headers = {{"Cache-Control", "private, no-cache"}, {"ETag", tag}}};
    if (request.header.get("If-None-Match", "") == tag)
        answer.status = Status::HTTP_NOT_MODIFIED;
    else if (screenshot->contentType == "image/jpeg")
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
    if (!m_places.try_acquire_for(longestWait))
        throw HttpError(Status::HTTP_SERVICE_UNAVAILABLE, "Too many thumbnails are being made");
    const std::unique_ptr<std::counting_semaphore<atOnce>, void (*)(std::counting_semaphore<atOnce> *)> place(
        &m_places, [](auto *places) { places->release(); });
    std::optional<std::string> thumbnail = jpegThumbnail(readContent(m_files, screenshot));
    if (!thumbnail)
        failNoThumbnail();
    return std::move(*thumbnail);
}

} // namespace wexel::receiver

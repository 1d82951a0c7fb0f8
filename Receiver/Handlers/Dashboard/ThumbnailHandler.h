#pragma once

#include "Http/Handler.h"
#include "Storage/FileStore.h"
#include "Storage/ReportStore.h"

#include <semaphore>

namespace wexel::receiver {

/// GET dashboard/api/reports/{id}/thumbnail: the report's screenshot made small. A browser may keep it, but asks each time
/// whether it still may show it; 503 if too many are being made.
class ThumbnailHandler : public Handler
{
public:
    ThumbnailHandler(const FileStore &files, ReportStore &store) : m_files(files), m_store(store) { }

    Answer handle(Request &request) override;

private:
    std::string thumbnailOf(const StoredFile &screenshot);

    /// So many are made at once: a list asks for all of its own, and each may take some fifty megabytes while it is made.
    static constexpr int atOnce = 2;

    const FileStore &m_files;
    ReportStore &m_store;
    std::counting_semaphore<atOnce> m_places{atOnce};
};

} // namespace wexel::receiver

#pragma once

#include "Http/Handler.h"
#include "Storage/FileStore.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// GET dashboard/api/reports/{id}/archive: the report and all of its files as one zip archive.
class ReportArchiveHandler : public Handler
{
public:
    ReportArchiveHandler(const FileStore &files, ReportStore &store) : m_files(files), m_store(store) { }

    Answer handle(Request &request) override;

private:
    const FileStore &m_files;
    ReportStore &m_store;
};

} // namespace wexel::receiver

#pragma once

#include "Http/Handler.h"
#include "Storage/FileStore.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// GET api/1.0/files/{id}: the file's bytes, for whoever knows its address. The id is random, so that is only who uploaded
/// the file and who may read the report.
class FileDownloadHandler : public Handler
{
public:
    FileDownloadHandler(const FileStore &files, ReportStore &store) : m_files(files), m_store(store) { }

    Answer handle(Request &request) override;

private:
    const FileStore &m_files;
    ReportStore &m_store;
};

} // namespace wexel::receiver

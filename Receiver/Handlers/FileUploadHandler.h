#pragma once

#include "Http/Handler.h"
#include "Http/Multipart.h"
#include "Storage/FileStore.h"
#include "Storage/ReportStore.h"

namespace wexel::receiver {

/// POST api/1.0/files: takes the part "file" of a multipart body, which goes to the disk as it arrives, and answers the
/// address that it can be fetched from.
class FileUploadHandler : public Handler
{
public:
    /// The address of a file is \a baseUrl and its id.
    FileUploadHandler(FileStore &files, ReportStore &store, std::string baseUrl, std::uint64_t maximumSize)
        : m_files(files)
        , m_store(store)
        , m_baseUrl(std::move(baseUrl))
        , m_maximumSize(maximumSize)
    {
    }

    Answer handle(Request &request) override;

private:
    /// One upload until its body has proved to be whole.
    struct Upload {
        std::string id;
        std::unique_ptr<IncomingFile> file;
        std::string name;
        std::string head = {}; ///< the first bytes, which tell the type
    };

    void receiveParts(Multipart &multipart, std::optional<Upload> &upload) const;
    void receive(Multipart &multipart, Upload &upload) const;
    StoredFile publish(Upload &upload) const;

    FileStore &m_files;
    ReportStore &m_store;
    std::string m_baseUrl;
    std::uint64_t m_maximumSize; ///< bytes
};

} // namespace wexel::receiver

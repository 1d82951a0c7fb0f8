#pragma once

#include "Storage/Database.h"
#include "Storage/FileStore.h"
#include "Storage/Folders.h"
#include "Storage/SqlReportStore.h"
#include "Storage/StoragePlace.h"
#include "Storage/TokenStore.h"

#include <memory>

namespace wexel::receiver {

/// Everything that a receiver keeps.
class DataFolder
{
public:
    enum class Access {
        Serve, ///< makes what is missing; a folder is taken for this process
        Fill, ///< for a command beside servers; makes an inbox where there is none
        Change, ///< the same, but what is to be changed must be there
        Read ///< the same, and nothing is written
    };

    /// Throws StorageError with a text for the user, or UsageError.
    DataFolder(const StoragePlace &place, Access access);

    FileStore &files() { return *m_files; }
    ReportStore &reports() { return m_reports; }
    Database &database() { return *m_database; }
    TokenStore &tokens() { return m_tokens; }

private:
    Descriptor m_lock; ///< of the folder; first, as nothing may be touched without it
    std::unique_ptr<Database> m_database;
    std::unique_ptr<FileStore> m_files;
    SqlReportStore m_reports;
    TokenStore m_tokens;
};

} // namespace wexel::receiver

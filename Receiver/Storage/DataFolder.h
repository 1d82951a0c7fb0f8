#pragma once

#include "Storage/Database.h"
#include "Storage/FolderFileStore.h"
#include "Storage/SqlReportStore.h"
#include "Storage/TokenStore.h"

#include <filesystem>

namespace wexel::receiver {

/// A data folder and what is in it.
class DataFolder
{
public:
    enum class Access {
        Serve, ///< takes the folder for this process, makes what is missing, removes what nobody needs
        Change, ///< for a command beside a running server; the folder must exist
        Read ///< the same, and nothing is written
    };

    /// Throws StorageError with a text for the user.
    DataFolder(const std::filesystem::path &path, Access access);
    ~DataFolder();
    DataFolder(const DataFolder &) = delete;
    DataFolder &operator=(const DataFolder &) = delete;

    FileStore &files() { return m_files; }
    ReportStore &reports() { return m_reports; }
    Database &database() { return m_database; }
    TokenStore &tokens() { return m_tokens; }

private:
    int m_lock; ///< the descriptor that holds the lock, or -1; first, as nothing may be touched without it
    FolderFileStore m_files;
    Database m_database;
    SqlReportStore m_reports;
    TokenStore m_tokens;
};

} // namespace wexel::receiver

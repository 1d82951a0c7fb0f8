#pragma once

#include "Storage/Database.h"

#include <filesystem>
#include <string>

namespace wexel::receiver {

/// The ids of the inboxes whose databases have been used with a folder of files, one a line in a file beside the files. A
/// database does not know the files of another one, so whoever removes what it does not know must be alone.
class InboxMarks
{
public:
    /// \a files: the folder that the files are in.
    explicit InboxMarks(const std::filesystem::path &files) : m_files(files), m_list(files / "inboxes") { }

    /// Adds the inbox of \a database, and "unknown" if there are files that nobody may remove for its sake. To be called
    /// before the first upload. Throws StorageError.
    void add(Database &database);

    /// Whether the files are those of the inbox that was added alone.
    bool isAlone() const;

    const std::filesystem::path &list() const { return m_list; }

private:
    bool hasFiles() const;
    void append(const std::string &line) const;

    std::filesystem::path m_files;
    std::filesystem::path m_list;
    std::string m_inbox;
};

} // namespace wexel::receiver

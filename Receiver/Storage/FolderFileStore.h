#pragma once

#include "Storage/FileStore.h"
#include "Storage/InboxMarks.h"

namespace wexel::receiver {

/// Files in a folder: DIR/files/ab/cdef... Several processes may share it. There is no lock, as each upload writes to a
/// temporary file of its own under DIR/incoming, which an atomic rename publishes.
class FolderFileStore : public FileStore
{
public:
    explicit FolderFileStore(const std::filesystem::path &folder);

    /// Makes the folders that are missing, and marks them as those of the inbox that \a database keeps; to be called before
    /// the first upload. Throws StorageError.
    void prepare(Database &database);

    std::unique_ptr<IncomingFile> receive(const std::string &location) override;
    std::unique_ptr<std::istream> open(const std::string &location, std::uint64_t size) const override;
    void remove(const std::string &location) override;
    /// Nothing at all if another inbox may have files here.
    std::size_t sweep(std::int64_t before, const UnknownAmong &unknownAmong) override;
    std::filesystem::path pathOf(const std::string &location) const override;

private:
    std::filesystem::path m_folder;
    std::filesystem::path m_files;
    std::filesystem::path m_incoming;
    InboxMarks m_marks;
};

} // namespace wexel::receiver

#pragma once

#include "Storage/Database.h"

#include <filesystem>
#include <mutex>

namespace wexel::receiver {

/// A database in a file, served by one process at a time: a connection that writes and one that reads, each used by one
/// thread at a time, so that a reader never waits for a writer's disk.
class SqliteDatabase : public Database
{
public:
    /// With Mode::Read the file must exist. Throws StorageError.
    SqliteDatabase(const std::filesystem::path &file, Mode mode);

    void write(const Work &work) override;
    void discardDeleted() override;
    void read(const Work &work) override;
    void readSnapshot(const Work &work) override;

private:
    std::filesystem::path m_file;
    std::mutex m_writing; ///< guards m_writer
    std::mutex m_reading; ///< guards m_reader; held together by discardDeleted() alone
    Poco::Data::Session m_writer;
    Poco::Data::Session m_reader;
};

} // namespace wexel::receiver

#pragma once

#include <Poco/Data/Session.h>

#include <filesystem>
#include <functional>
#include <mutex>

namespace wexel::receiver {

/// The SQLite database of a data folder (DIR/receiver.sqlite): a connection that writes and one that reads, each used
/// by one thread at a time, so that a reader never waits for a writer's disk. Every thread may use it.
class Database
{
public:
    enum class Mode { Write, Read };

    /// Opens it, or makes it with the schema of this version; with Mode::Read it must exist, and write() fails. Throws
    /// StorageError.
    Database(const std::filesystem::path &file, Mode mode);

    /// Runs \a work as one transaction, which is on disk when this returns and undone when \a work throws. A failure of
    /// the database comes out as a StorageError.
    void write(const std::function<void(Poco::Data::Session &)> &work);

    /// Runs \a work, which must only read.
    void read(const std::function<void(Poco::Data::Session &)> &work);

private:
    std::mutex m_writing; ///< guards m_writer
    std::mutex m_reading; ///< guards m_reader; the two are never held together
    Poco::Data::Session m_writer;
    Poco::Data::Session m_reader;
};

/// The time of now as the database keeps it: milliseconds since 1970.
std::int64_t currentMilliseconds();

} // namespace wexel::receiver

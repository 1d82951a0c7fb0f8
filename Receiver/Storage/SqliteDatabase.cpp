#include "Storage/SqliteDatabase.h"

#include "Log.h"
#include "Storage/Migrations.h"
#include "Storage/StorageError.h"

#include <Poco/Data/SQLite/Connector.h>
#include <Poco/Data/SQLite/SQLiteException.h>
#include <Poco/URI.h>

#include <optional>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

/// Runs \a work with the database's exceptions turned into ours.
void translated(const std::function<void()> &work)
{
    try {
        work();
    } catch (const Poco::Data::SQLite::DatabaseFullException &error) {
        throw StorageError(StorageError::Kind::Full, error.displayText());
    } catch (const Poco::Exception &error) {
        throw StorageError(StorageError::Kind::Failed, error.displayText());
    }
}

/// The address of the database, which can say that it is not to be changed; a plain path can't.
std::string addressOf(const std::filesystem::path &file, Database::Mode mode)
{
    std::string path;
    Poco::URI::encode(absolute(file).string(), "?#", path);
    return "file:" + path + (mode == Database::Mode::Read ? "?mode=ro" : "");
}

Session open(const std::filesystem::path &file, Database::Mode mode)
{
    std::optional<Session> session;
    translated([&] {
        static const bool registered = (Poco::Data::SQLite::Connector::registerConnector(), true);
        (void)registered;
        session.emplace(Poco::Data::SQLite::Connector::KEY, addressOf(file, mode));
        *session << "PRAGMA busy_timeout = 10000", now;
        if (mode == Database::Mode::Read)
            return;
        *session << "PRAGMA journal_mode = WAL", now;
        // Only FULL syncs the log at every commit, which a power cut asks for.
        *session << "PRAGMA synchronous = FULL", now;
        *session << "PRAGMA foreign_keys = ON", now;
        // What is deleted is overwritten.
        *session << "PRAGMA secure_delete = ON", now;
    });
    return *session;
}

void transact(Session &session, const std::function<void(Session &)> &work)
{
    // IMMEDIATE: a transaction that reads first must not lose to another process when it comes to write.
    session << "BEGIN IMMEDIATE", now;
    try {
        work(session);
        session << "COMMIT", now;
    } catch (...) {
        try {
            session << "ROLLBACK", now;
        } catch (const Poco::Exception &) { // A full disk has rolled back already.
        }
        throw;
    }
}

} // namespace

SqliteDatabase::SqliteDatabase(const std::filesystem::path &file, Mode mode)
    : m_file(file)
    , m_writer(open(file, mode))
    , m_reader(open(file, mode))
{
    if (mode == Mode::Serve)
        SqliteDatabase::write([](Session &session) { migrate(session, Dialect::Sqlite); });
    else if (mode == Mode::Fill)
        SqliteDatabase::write([](Session &session) { fillSchema(session, Dialect::Sqlite); });
    else
        SqliteDatabase::read([](Session &session) { checkSchema(session, Dialect::Sqlite); });
}

void SqliteDatabase::write(const Work &work)
{
    const std::lock_guard lock(m_writing);
    translated([&] { transact(m_writer, work); });
}

void SqliteDatabase::discardDeleted()
{
    const std::scoped_lock lock(m_writing, m_reading);
    try {
        Session session = open(m_file, Mode::Write);
        // An export is not waited for: the next time does what this one can't.
        session << "PRAGMA busy_timeout = 0", now;
        session << "PRAGMA wal_checkpoint(TRUNCATE)", now;
    } catch (const std::exception &error) {
        logEvent("storage_failed", {{"error", error.what()}});
    }
}

void SqliteDatabase::read(const Work &work)
{
    const std::lock_guard lock(m_reading);
    translated([&] { work(m_reader); });
}

void SqliteDatabase::readSnapshot(const Work &work)
{
    Session session = open(m_file, Mode::Read);
    translated([&] {
        session << "BEGIN", now;
        work(session);
    });
}

} // namespace wexel::receiver

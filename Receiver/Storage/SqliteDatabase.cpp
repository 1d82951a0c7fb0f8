#include "Storage/SqliteDatabase.h"

#include "Log.h"
#include "Storage/Folders.h"
#include "Storage/Migrations.h"
#include "Storage/StorageError.h"

#include <Poco/Data/SQLite/Connector.h>
#include <Poco/Data/SQLite/SQLiteException.h>
#include <Poco/URI.h>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

/// What went wrong, which the database's exceptions say twice.
std::string sqliteReason(const Poco::Exception &error)
{
    const std::string &text = error.message();
    const std::size_t half = text.size() / 2;
    const bool isTwice = text.size() % 2 == 0 && half > 0 && text.substr(half - 1, 2) == ": "
        && text.substr(0, half - 1) == text.substr(half + 1);
    return text.empty() ? error.displayText() : isTwice ? text.substr(half + 1) : text;
}

/// Runs \a work with the database's exceptions turned into ours.
void translated(const std::function<void()> &work)
{
    try {
        work();
    } catch (const Poco::Data::SQLite::DatabaseFullException &error) {
        throw StorageError(StorageError::Kind::Full, sqliteReason(error));
    } catch (const Poco::Exception &error) {
        throw StorageError(StorageError::Kind::Failed, sqliteReason(error));
    }
}

/// The address of the database, which can say that it is not to be changed; a plain path can't.
std::string addressOf(const std::filesystem::path &file, Database::Mode mode)
{
    std::string path;
    Poco::URI::encode(absolute(file).string(), "?#", path);
    return "file:" + path + (mode == Database::Mode::Read ? "?mode=ro" : "");
}

/// SQLite does not say why it can't open a file.
void checkAccess(const std::filesystem::path &file, Database::Mode mode)
{
    const int wanted = mode == Database::Mode::Read ? R_OK : R_OK | W_OK;
    std::error_code error;
    if (::faccessat(AT_FDCWD, file.c_str(), wanted, AT_EACCESS) != 0 && errno != ENOENT)
        failStorage("can't be used", errno);
    if (std::filesystem::is_directory(file, error))
        failStorage("can't be used", EISDIR);
}

Session open(const std::filesystem::path &file, Database::Mode mode)
{
    std::optional<Session> session;
    checkAccess(file, mode);
    translated([&] {
        static const bool registered = (Poco::Data::SQLite::Connector::registerConnector(), true);
        (void)registered;
        // What can't be opened now can't be later; by itself it would try for a minute.
        constexpr std::size_t patience = 0;
        session.emplace(Poco::Data::SQLite::Connector::KEY, addressOf(file, mode), patience);
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

Session openNamed(const std::filesystem::path &file, Database::Mode mode)
{
    std::optional<Session> session;
    named(file.string(), [&] { session = open(file, mode); });
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
    , m_writer(openNamed(file, mode))
    , m_reader(openNamed(file, mode))
{
    named(file.string(), [&] {
        if (mode == Mode::Serve)
            SqliteDatabase::write([](Session &session) { migrate(session, Dialect::Sqlite); });
        else if (mode == Mode::Fill)
            SqliteDatabase::write([](Session &session) { fillSchema(session, Dialect::Sqlite); });
        else
            SqliteDatabase::read([](Session &session) { checkSchema(session, Dialect::Sqlite); });
    });
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

#include "Storage/Database.h"

#include "Storage/StorageError.h"

#include <Poco/Data/SQLite/Connector.h>
#include <Poco/Data/SQLite/SQLiteException.h>
#include <Poco/Timestamp.h>
#include <Poco/URI.h>

#include <optional>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

constexpr const char *schema[] = {
    "CREATE TABLE applications (bundle_id TEXT PRIMARY KEY, os TEXT NOT NULL, platform TEXT NOT NULL, "
    "archived INTEGER NOT NULL DEFAULT 0)",
    "CREATE TABLE files (id TEXT PRIMARY KEY, sha256 TEXT NOT NULL, name TEXT NOT NULL, content_type TEXT "
    "NOT NULL, "
    "size INTEGER NOT NULL, received INTEGER NOT NULL)",
    "CREATE TABLE reports (id INTEGER PRIMARY KEY AUTOINCREMENT, received INTEGER NOT NULL, "
    "bundle_id TEXT NOT NULL REFERENCES applications, json TEXT NOT NULL)",
    // Position 0 is the screenshot, the attached files follow.
    "CREATE TABLE report_files (report_id INTEGER NOT NULL REFERENCES reports, position INTEGER NOT NULL, "
    "file_id TEXT NOT NULL REFERENCES files, PRIMARY KEY (report_id, position)) WITHOUT ROWID",
    "CREATE TABLE tokens (digest TEXT PRIMARY KEY, client TEXT NOT NULL, expires INTEGER NOT NULL) WITHOUT "
    "ROWID",
    // Lets a file be deleted without a look at every report.
    "CREATE INDEX report_files_file_id ON report_files (file_id)",
};

/// The versions that can be met: the one before the index came, and that of this schema.
constexpr int versionWithoutIndex = 1;
constexpr int schemaVersion = 2;

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

int checkedVersion(Session &session)
{
    int version = 0;
    session << "PRAGMA user_version", into(version), now;
    if (version > schemaVersion)
        throw StorageError(StorageError::Kind::Failed,
                           "The data folder was written by a newer wexel-receiver");
    return version;
}

void migrate(Session &session)
{
    const int version = checkedVersion(session);
    if (version == schemaVersion)
        return;
    for (const char *statement : schema) {
        if (version != versionWithoutIndex || statement == std::end(schema)[-1])
            session << statement, now;
    }
    session << "PRAGMA user_version = " + std::to_string(schemaVersion), now;
}

} // namespace

Database::Database(const std::filesystem::path &file, Mode mode)
    : m_writer(open(file, mode))
    , m_reader(open(file, mode))
{
    mode == Mode::Read ? read(checkedVersion) : write(migrate);
}

void Database::write(const std::function<void(Session &)> &work)
{
    const std::lock_guard lock(m_writing);
    translated([&] { transact(m_writer, work); });
}

void Database::read(const std::function<void(Session &)> &work)
{
    const std::lock_guard lock(m_reading);
    translated([&] { work(m_reader); });
}

std::int64_t currentMilliseconds()
{
    return Poco::Timestamp().epochMicroseconds() / 1000;
}

} // namespace wexel::receiver

#include "Storage/Migrations.h"

#include "Secrets.h"
#include "Storage/ReportListing.h"
#include "Storage/StorageError.h"

#include <Poco/String.h>

#include <string>
#include <vector>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

/// One step from a schema to the next. Steps that were released are never changed.
struct Step {
    std::vector<std::string> statements; ///< as SQLite takes them
    void (*fill)(Session &) = nullptr; ///< what statements can't do
};

/// Step N, counted from 1, leads to version N.
const std::vector<Step> &steps()
{
    static const std::vector<Step> all = {
        {{
            R"(CREATE TABLE applications (bundle_id TEXT PRIMARY KEY, os TEXT NOT NULL, platform TEXT
                NOT NULL, archived INTEGER NOT NULL DEFAULT 0))",
            R"(CREATE TABLE files (id TEXT PRIMARY KEY, sha256 TEXT NOT NULL, name TEXT NOT NULL,
                content_type TEXT NOT NULL, size INTEGER NOT NULL, received INTEGER NOT NULL))",
            R"(CREATE TABLE reports (id INTEGER PRIMARY KEY AUTOINCREMENT, received INTEGER NOT NULL,
                bundle_id TEXT NOT NULL REFERENCES applications, json TEXT NOT NULL))",
            // Position 0 is the screenshot, the attached files follow.
            R"(CREATE TABLE report_files (report_id INTEGER NOT NULL REFERENCES reports, position
                INTEGER NOT NULL, file_id TEXT NOT NULL REFERENCES files, PRIMARY KEY (report_id,
                position)) WITHOUT ROWID)",
            R"(CREATE TABLE tokens (digest TEXT PRIMARY KEY, client TEXT NOT NULL, expires INTEGER NOT
                NULL) WITHOUT ROWID)",
        }},
        {{
            // Lets a file be deleted without a look at every report.
            "CREATE INDEX report_files_file_id ON report_files (file_id)",
        }},
        {{
             // Rows that are short are searched fast.
             R"(CREATE TABLE report_documents (report_id INTEGER PRIMARY KEY REFERENCES reports, json
                TEXT NOT NULL))",
             "INSERT INTO report_documents SELECT id, json FROM reports",
             "ALTER TABLE reports DROP COLUMN json",
             "ALTER TABLE reports ADD COLUMN summary TEXT NOT NULL DEFAULT ''",
             "ALTER TABLE reports ADD COLUMN tester TEXT NOT NULL DEFAULT ''",
             "ALTER TABLE reports ADD COLUMN device TEXT NOT NULL DEFAULT ''",
             "ALTER TABLE reports ADD COLUMN os_version TEXT NOT NULL DEFAULT ''",
             "ALTER TABLE reports ADD COLUMN app_version TEXT NOT NULL DEFAULT ''",
             "ALTER TABLE reports ADD COLUMN bytes INTEGER NOT NULL DEFAULT 0",
             "ALTER TABLE reports ADD COLUMN search TEXT NOT NULL DEFAULT ''",
             "CREATE INDEX reports_received ON reports (received, id)",
             "CREATE INDEX reports_bundle_id ON reports (bundle_id, received, bytes)",
             "CREATE INDEX reports_app_version ON reports (app_version)",
             "CREATE INDEX reports_device ON reports (device)",
             "ALTER TABLE applications ADD COLUMN max_age_days INTEGER",
             "ALTER TABLE applications ADD COLUMN max_bytes INTEGER",
             // The name of a file's bytes; several files had one in the versions before.
             "ALTER TABLE files ADD COLUMN location TEXT NOT NULL DEFAULT ''",
             "UPDATE files SET location = sha256",
             "CREATE INDEX files_location ON files (location)",
             // What was taken once, kept beyond the report.
             R"(CREATE TABLE report_digests (digest TEXT PRIMARY KEY, report_id INTEGER NOT NULL)
                WITHOUT ROWID)",
             R"(CREATE TABLE file_chunks (location TEXT NOT NULL, position INTEGER NOT NULL, stored
                INTEGER NOT NULL, bytes BLOB NOT NULL, PRIMARY KEY (location, position)))",
         },
         describeReports},
        {{
            // The one password; the row's id is 1.
            "CREATE TABLE administrator (id INTEGER PRIMARY KEY, password TEXT NOT NULL)",
            R"(CREATE TABLE sessions (digest TEXT PRIMARY KEY, used INTEGER NOT NULL, expires INTEGER
                NOT NULL) WITHOUT ROWID)",
            R"(CREATE TABLE clients (id TEXT PRIMARY KEY, secret_digest TEXT NOT NULL, created INTEGER
                NOT NULL, last_used INTEGER, revoked INTEGER NOT NULL DEFAULT 0))",
            R"(CREATE TABLE client_bundles (client_id TEXT NOT NULL REFERENCES clients, bundle_id TEXT
                NOT NULL, PRIMARY KEY (client_id, bundle_id)) WITHOUT ROWID)",
        }},
        {{
             // Tells this database from others that may have used the same folder of files.
             "CREATE TABLE inbox (id TEXT PRIMARY KEY)",
             "CREATE INDEX tokens_expires ON tokens (expires)",
             "CREATE INDEX tokens_client ON tokens (client)",
         },
         [](Session &session) { session << "INSERT INTO inbox (id) VALUES ($1)", bind(randomId()), now; }},
        {{
            // Where the bytes of files are: 'database', 'folder', or not known before the first start.
            "ALTER TABLE inbox ADD COLUMN bytes_in TEXT",
            R"(UPDATE inbox SET bytes_in = CASE WHEN EXISTS (SELECT 1 FROM file_chunks) THEN 'database'
                WHEN EXISTS (SELECT 1 FROM files WHERE size > 0) THEN 'folder' END)",
        }},
    };
    return all;
}

std::string translated(std::string statement, Dialect dialect)
{
    if (dialect == Dialect::Sqlite)
        return statement;
    Poco::replaceInPlace(statement, "INTEGER PRIMARY KEY AUTOINCREMENT",
                         "BIGINT GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY");
    Poco::replaceInPlace(statement, " INTEGER", " BIGINT");
    Poco::replaceInPlace(statement, " BLOB", " BYTEA");
    Poco::replaceInPlace(statement, " WITHOUT ROWID", "");
    return statement;
}

bool hasVersionTable(Session &session, Dialect dialect)
{
    int count = 0;
    session
        << (dialect == Dialect::Sqlite
                ? "SELECT count(*) FROM sqlite_master WHERE name = 'schema_version'"
                : "SELECT count(*) FROM pg_tables WHERE tablename = 'schema_version' AND schemaname = ANY "
                  "(current_schemas(false))"),
        into(count), now;
    return count != 0;
}

template <typename Number>
std::string versionsText(Number version)
{
    return " (schema version " + std::to_string(version) + ", this one's is " + std::to_string(steps().size())
        + ')';
}

/// The version that is reached; 0 in a new database. The first versions, all on SQLite, kept it in a place of SQLite's own.
std::size_t reachedVersion(Session &session, Dialect dialect)
{
    Poco::Int64 version = 0;
    if (hasVersionTable(session, dialect))
        session << "SELECT coalesce(max(version), 0) FROM schema_version", into(version), now;
    else if (dialect == Dialect::Sqlite)
        session << "PRAGMA user_version", into(version), now;
    if (version > static_cast<Poco::Int64>(steps().size()))
        throw StorageError(StorageError::Kind::Failed,
                           "a newer wexel-receiver has written it" + versionsText(version));
    return static_cast<std::size_t>(version);
}

void setVersion(Session &session, Dialect dialect, std::size_t version)
{
    session << "DELETE FROM schema_version", now;
    session << "INSERT INTO schema_version (version) VALUES (" + std::to_string(version) + ")", now;
    // It keeps the first versions from writing.
    if (dialect == Dialect::Sqlite)
        session << "PRAGMA user_version = " + std::to_string(version), now;
}

} // namespace

void migrate(Session &session, Dialect dialect)
{
    std::size_t version = reachedVersion(session, dialect);
    // Whoever finds all up to date needs no right to make tables.
    if (!hasVersionTable(session, dialect))
        session << translated("CREATE TABLE schema_version (version INTEGER NOT NULL)", dialect), now;
    for (; version < steps().size(); ++version) {
        const Step &step = steps()[version];
        for (const std::string &statement : step.statements)
            session << translated(statement, dialect), now;
        if (step.fill)
            step.fill(session);
        setVersion(session, dialect, version + 1);
    }
}

void fillSchema(Session &session, Dialect dialect)
{
    reachedVersion(session, dialect) == 0 ? migrate(session, dialect) : checkSchema(session, dialect);
}

void checkSchema(Session &session, Dialect dialect)
{
    const std::size_t version = reachedVersion(session, dialect);
    if (version == 0)
        throw StorageError(StorageError::Kind::Failed, "no wexel-receiver has served it yet");
    if (version < steps().size())
        throw StorageError(StorageError::Kind::Failed,
                           "an older wexel-receiver has written it" + versionsText(version)
                               + "; start this one once to bring it up to date");
}

} // namespace wexel::receiver

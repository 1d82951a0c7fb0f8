#include "Storage/Database.h"
#include "Storage/SqliteDatabase.h"
#include "Storage/StorageError.h"
#include "Support/StorageFixture.h"

#include <Poco/Data/SQLite/Connector.h>

#include <gmock/gmock.h>

namespace {

using namespace wexel::receiver;
using namespace Poco::Data::Keywords;
using Access = DataFolder::Access;

/// A data folder as the versions of before left it.
class MigrationTest : public testing::TestWithParam<int>
{
protected:
    void write(const std::vector<std::string> &statements)
    {
        Poco::Data::SQLite::Connector::registerConnector();
        Poco::Data::Session session("SQLite", folder.path() / "receiver.sqlite");
        for (const std::string &statement : statements)
            session << statement, now;
    }

    void SetUp() override
    {
        const std::string shared = '\'' + sha + '\'';
        write(
            {R"(CREATE TABLE applications (bundle_id TEXT PRIMARY KEY, os TEXT NOT NULL, platform TEXT NOT NULL,
                  archived INTEGER NOT NULL DEFAULT 0))",
             R"(CREATE TABLE files (id TEXT PRIMARY KEY, sha256 TEXT NOT NULL, name TEXT NOT NULL,
                  content_type TEXT NOT NULL, size INTEGER NOT NULL, received INTEGER NOT NULL))",
             R"(CREATE TABLE reports (id INTEGER PRIMARY KEY AUTOINCREMENT, received INTEGER NOT NULL,
                  bundle_id TEXT NOT NULL REFERENCES applications, json TEXT NOT NULL))",
             R"(CREATE TABLE report_files (report_id INTEGER NOT NULL REFERENCES reports,
                  position INTEGER NOT NULL, file_id TEXT NOT NULL REFERENCES files,
                  PRIMARY KEY (report_id, position)) WITHOUT ROWID)",
             R"(CREATE TABLE tokens (digest TEXT PRIMARY KEY, client TEXT NOT NULL,
                  expires INTEGER NOT NULL) WITHOUT ROWID)",
             "INSERT INTO applications VALUES ('org.example.app', 'iOS', 'iOS', 0), ('org.off', '', '', 1)",
             "INSERT INTO files VALUES ('f1', " + shared + ", 'a.png', 'image/png', 5, 1)",
             "INSERT INTO files VALUES ('f2', " + shared + ", 'b', 'x', 5, 2)",
             "INSERT INTO reports VALUES (7, 1000, 'org.example.app', '" + json + "')",
             "INSERT INTO reports VALUES (9, 2000, 'org.example.app', 'damaged')",
             "INSERT INTO report_files VALUES (7, 0, 'f1'), (9, 1, 'f2')",
             "INSERT INTO tokens VALUES ('" + sha256("token") + "', 'id', 9000000000000)"});
        if (GetParam() == 2)
            write({"CREATE INDEX report_files_file_id ON report_files (file_id)"});
        write({"PRAGMA user_version = " + std::to_string(GetParam())});
        std::filesystem::create_directories((folder.path() / "files" / "ab"));
        writeFile(folder.path() / "files" / "ab" / sha.substr(2), "bytes");
    }

    TemporaryFolder folder;
    const std::string sha = "ab" + std::string(62, '1');
    const std::string json = R"({"screenshot_url":"http://x/files/f1","description":"Old","device":"Phone"})";
};

INSTANTIATE_TEST_SUITE_P(, MigrationTest, testing::Values(1, 2));

TEST_P(MigrationTest, TakesOverWhatTheVersionsBeforeKept)
{
    EXPECT_THROW(DataFolder({folder.path()}, Access::Read), StorageError) << "a command changes no schema";
    DataFolder storage({folder.path()}, Access::Serve);
    ReportStore &reports = storage.reports();
    EXPECT_EQ(reports.reportJson(7), json);
    EXPECT_EQ(reports.reportJson(9), "damaged");
    const ReportPage page = reports.page({.search = "old"});
    ASSERT_EQ(page.rows.size(), 1U);
    EXPECT_EQ(page.rows[0].device, "Phone");
    EXPECT_TRUE(page.rows[0].hasScreenshot);
    EXPECT_EQ(reports.applications().at(0).bytes, static_cast<std::int64_t>(json.size()) + 7 + 5 + 5);
    EXPECT_TRUE(reports.isArchived("org.off"));
    EXPECT_EQ(storage.tokens().clientOf("token", 1), "id");

    // Two files have one copy of their bytes, which stays as long as one of them does.
    const StoredFile other = reports.file("f2").value();
    EXPECT_TRUE(reports.removeReport(7));
    EXPECT_TRUE(storage.files().open(other.location, 5));
    EXPECT_TRUE(reports.removeReport(9));
    EXPECT_FALSE(storage.files().open(other.location, 5));
    // Taken by the version before, and removed: it does not come back. A new report gets an id of its own.
    EXPECT_FALSE(reports.addReport(newReport(bundleId, json, 5))->isNew);
    EXPECT_EQ(reports.addReport(newReport(bundleId, "{}", 5))->id, 10);
}

TEST_P(MigrationTest, RefusesWhatANewerVersionKept)
{
    {
        const DataFolder storage({folder.path()}, Access::Serve);
    }
    write({"UPDATE schema_version SET version = 1000", "PRAGMA user_version = 1000"});
    try {
        DataFolder({folder.path()}, Access::Serve);
        ADD_FAILURE() << "took what it can't understand";
    } catch (const StorageError &error) {
        EXPECT_THAT(error.what(),
                    testing::MatchesRegex(folder.path().string() + "/receiver.sqlite: .*1000.* [0-9]+.*"));
    }
}

} // namespace

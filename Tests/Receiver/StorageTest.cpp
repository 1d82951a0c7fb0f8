#include "Storage/DataFolder.h"
#include "Storage/Maintenance.h"
#include "Storage/StorageError.h"
#include "Support/StorageFixture.h"

#include <gmock/gmock.h>

namespace {

using namespace wexel::receiver;
using Access = DataFolder::Access;
using testing::ElementsAre;

constexpr std::int64_t hour = std::int64_t(3600) * 1000;
constexpr std::int64_t day = 24 * hour;

class StorageTest : public StorageFixture
{
};

INSTANTIATE_TEST_SUITE_P(, StorageTest,
                         testing::Values(Keeping::Sqlite, Keeping::PostgreSql, Keeping::PostgreSqlWithFolder),
                         nameOf);

TEST_P(StorageTest, TokensExpire)
{
    DataFolder storage(place, Access::Serve);
    const std::string token = storage.tokens().issue("client", 10, 1000);
    EXPECT_EQ(storage.tokens().clientOf(token, 10999), "client");
    EXPECT_EQ(storage.tokens().clientOf(token, 11000), std::nullopt);
    storage.tokens().issue("client", 10, 11000);
    EXPECT_EQ(storage.tokens().clientOf(token, 1000), std::nullopt) << "an expired token is kept";
}

TEST_P(StorageTest, KeepsWhatArrives)
{
    const std::string content = std::string("\0\xff'\\x", 5) + std::string(600000, 'c');
    const std::string json = R"({"description":"'; -- \u0000 é","device":"\\"})";
    StoredFile screenshot;
    std::int64_t id = 0;
    {
        DataFolder storage(place, Access::Serve);
        screenshot = addFile(storage, content);
        const StoredFile empty = addFile(storage, "");
        NewReport report = newReport(bundleId, json, 5);
        report.screenshotId = screenshot.id;
        report.fileIds = {empty.id, "unknown", screenshot.id};
        id = storage.reports().addReport(report).value().id;
    }
    DataFolder storage(place, Access::Read);
    EXPECT_EQ(storage.reports().reportJson(id), json);
    const ReportFiles files = storage.reports().filesOf(id);
    EXPECT_EQ(bytesOf(storage, files.screenshot.value()), content);
    ASSERT_EQ(files.files.size(), 2U);
    EXPECT_EQ(bytesOf(storage, files.files[0]), "");
    EXPECT_EQ(files.files[1].id, screenshot.id);
    EXPECT_EQ(storage.reports().report(id).value().summary, "'; --  é");
    EXPECT_EQ(storage.reports().reportJson(id + 1), std::nullopt);
    EXPECT_THROW(storage.reports().setArchived(bundleId, true), StorageError);
}

TEST_P(StorageTest, SweepsWhatNobodyNeeds)
{
    DataFolder storage(place, Access::Serve);
    Maintenance maintenance(storage.files(), storage.reports());
    const StoredFile reported = addFile(storage, "reported", 30 * day);
    const StoredFile recent = addFile(storage, "recent", 20 * hour);
    const StoredFile abandoned = addFile(storage, "abandoned", 2 * day);
    NewReport report = newReport(bundleId, "{}", 0);
    report.fileIds = {reported.id};
    storage.reports().addReport(report);
    StoredFile rowless = {randomId(), "", "", "", 7};
    rowless.location = rowless.id;
    const auto incoming = storage.files().receive(rowless.id);
    incoming->write("rowless");
    incoming->publish();
    const auto unfinished = storage.files().receive(randomId());

    const std::int64_t now = currentMilliseconds();
    maintenance.sweep(now, now - hour);
    EXPECT_EQ(bytesOf(storage, rowless), "rowless") << "its row may be about to come";
    maintenance.sweep(now, now + hour);
    EXPECT_EQ(bytesOf(storage, rowless), std::nullopt);
    if (GetParam() != Keeping::PostgreSql) { // which has nothing of it yet
        EXPECT_THROW(unfinished->publish(), StorageError) << "its process may be gone";
    }
    EXPECT_EQ(bytesOf(storage, reported), "reported");
    EXPECT_EQ(bytesOf(storage, recent), "recent");
    EXPECT_TRUE(storage.reports().file(recent.id));
    EXPECT_FALSE(storage.reports().file(abandoned.id));
    EXPECT_EQ(bytesOf(storage, abandoned), std::nullopt);
}

TEST_P(StorageTest, SweepsNoFilesOfAnotherInbox)
{
    if (GetParam() == Keeping::PostgreSql)
        GTEST_SKIP() << "there the files are in the inbox's own database";
    const auto list = (place.database.empty() ? place.data : place.files) / "files" / "inboxes";
    const auto useNewDatabase = [&] {
        if (place.database.empty())
            std::filesystem::remove(place.data / "receiver.sqlite");
        else
            place.database = PostgresServer::instance().newDatabase();
    };
    const StoredFile earlier = addFile(*std::make_unique<DataFolder>(place, Access::Serve), "earlier");
    const auto earlierAfterSweep = [&] {
        DataFolder storage(place, Access::Serve);
        addFile(storage, "own");
        Maintenance(storage.files(), storage.reports()).sweep(0, currentMilliseconds() + hour);
        return bytesOf(storage, earlier);
    };
    useNewDatabase();
    EXPECT_EQ(earlierAfterSweep(), "earlier");
    useNewDatabase();
    std::filesystem::remove(list);
    EXPECT_EQ(earlierAfterSweep(), "earlier") << "nobody knows whose it is";
    const std::string unknownAndOwn = readFile(list);
    EXPECT_EQ(unknownAndOwn.find("unknown\n"), 0U);
    writeFile(list, unknownAndOwn.substr(unknownAndOwn.find('\n') + 1));
    EXPECT_EQ(earlierAfterSweep(), std::nullopt);
}

TEST_P(StorageTest, KeepsBytesInOnePlaceOnly)
{
    if (GetParam() == Keeping::Sqlite)
        GTEST_SKIP() << "there is but one";
    StoragePlace other = place;
    other.files = place.files.empty() ? folder.path() / "elsewhere" : std::filesystem::path();
    const auto expectRefusal = [&](Access access) {
        try {
            const DataFolder opened(other, access);
            ADD_FAILURE() << "opened";
        } catch (const StorageError &error) {
            EXPECT_THAT(error.what(),
                        testing::HasSubstr(place.files.empty() ? "leave --files out" : "--files DIR"));
        }
        EXPECT_FALSE(std::filesystem::exists(folder.path() / "elsewhere"));
    };
    DataFolder storage(place, Access::Serve);
    for (const Access access : {Access::Serve, Access::Fill, Access::Change, Access::Read})
        expectRefusal(access);
    // The versions before did not note it down.
    addFile(storage, "bytes");
    storage.database().write([](Poco::Data::Session &session) {
        session << "ALTER TABLE inbox DROP COLUMN bytes_in", Poco::Data::Keywords::now;
        session << "UPDATE schema_version SET version = 5", Poco::Data::Keywords::now;
    });
    expectRefusal(Access::Serve);
}

TEST_P(StorageTest, RefusesAFolderThatIsNotMounted)
{
    if (place.files.empty())
        GTEST_SKIP() << "there is no folder that others share";
    addFile(*std::make_unique<DataFolder>(place, Access::Serve), "bytes");
    const auto away = folder.path() / "away";
    std::filesystem::rename(place.files, away);
    for (const Access access : {Access::Serve, Access::Fill}) {
        EXPECT_THROW(DataFolder(place, access), StorageError);
        EXPECT_FALSE(std::filesystem::exists(place.files));
    }
    std::filesystem::rename(away, place.files);
    EXPECT_NO_THROW(DataFolder(place, Access::Serve));
    std::filesystem::remove_all(place.files);
    std::filesystem::create_directories(place.files / "files");
    EXPECT_NO_THROW(DataFolder(place, Access::Serve)) << "they may be lost for good";
}

TEST_P(StorageTest, TakesAReportOnce)
{
    DataFolder storage(place, Access::Serve);
    const auto report = [](const StoredFile &screenshot, const std::vector<StoredFile> &files,
                           const std::string &rest) {
        std::string json = "{\"screenshot_url\":\"" + addressOf(screenshot) + "\"," + rest + ",\"files\":[";
        for (const StoredFile &file : files)
            json += (json.ends_with('[') ? "" : ",") + ("{\"url\":\"" + addressOf(file) + "\"}");
        return json + "]}";
    };
    const auto shot = [&] { return addFile(storage, "shot"); };
    const StoredFile first = shot();
    const std::string facts = R"("x":{"1":1,"2":3},"y":[1,2])";
    const std::string text = report(first, {addFile(storage, "a"), addFile(storage, "b")}, facts);
    const AddedReport added = addReport(storage, text);
    EXPECT_TRUE(added.isNew);

    // The files were uploaded again, and the uploads ended in another order.
    const StoredFile second = shot();
    const std::string repeated = report(second, {addFile(storage, "b"), addFile(storage, "a")},
                                        "\"y\":[1,2],\n \"x\" : {\"2\":3, \"1\":1}");
    const AddedReport again = addReport(storage, repeated);
    EXPECT_EQ(again.id, added.id);
    EXPECT_FALSE(again.isNew);
    EXPECT_EQ(bytesOf(storage, second), std::nullopt) << "the repeat's files are kept";
    EXPECT_EQ(bytesOf(storage, first), "shot");
    EXPECT_FALSE(addReport(storage, text).isNew);
    EXPECT_EQ(bytesOf(storage, first), "shot") << "a repeat took the report's own files";

    EXPECT_TRUE(addReport(storage, text, "org.example.other").isNew);
    for (const std::string other : {R"("x":{"1":3,"2":1},"y":[1,2])", R"("x":{"1":1,"2":3},"y":[2,1])",
                                    R"("x":{"1":1},"2":3,"y":[1,2])", R"("x":{"1":1,"2":3,"y":[1,2]})"})
        EXPECT_TRUE(
            addReport(storage, report(shot(), {addFile(storage, "a"), addFile(storage, "b")}, other)).isNew)
            << other;
    EXPECT_TRUE(
        addReport(storage, report(shot(), {addFile(storage, "a"), addFile(storage, "a")}, facts)).isNew);
    EXPECT_TRUE(
        addReport(storage,
                  report(addFile(storage, "other"), {addFile(storage, "a"), addFile(storage, "b")}, facts))
            .isNew);

    // What was removed does not come back, neither by the same text nor by new uploads.
    EXPECT_TRUE(storage.reports().removeReport(added.id));
    EXPECT_FALSE(addReport(storage, text).isNew);
    EXPECT_FALSE(addReport(storage, repeated).isNew);
    EXPECT_FALSE(
        addReport(storage, report(shot(), {addFile(storage, "a"), addFile(storage, "b")}, facts)).isNew);
    EXPECT_FALSE(storage.reports().report(added.id));
}

TEST_P(StorageTest, RemovesAReportWithItsBytes)
{
    DataFolder storage(place, Access::Serve);
    const StoredFile own = addFile(storage, "same");
    const StoredFile shared = addFile(storage, "same");
    const auto add = [&](const std::vector<std::string> &files, const std::string &json) {
        NewReport report = newReport(bundleId, json, 0);
        report.fileIds = files;
        return storage.reports().addReport(report).value().id;
    };
    const std::int64_t removed = add({own.id, shared.id, own.id}, "{}");
    const std::int64_t kept = add({shared.id}, R"({"other":1})");
    EXPECT_TRUE(storage.reports().removeReport(removed));
    EXPECT_FALSE(storage.reports().removeReport(removed));
    EXPECT_EQ(storage.reports().reportJson(removed), std::nullopt);
    EXPECT_FALSE(storage.reports().file(own.id));
    EXPECT_EQ(bytesOf(storage, own), std::nullopt);
    EXPECT_EQ(bytesOf(storage, shared), "same");
    EXPECT_TRUE(storage.reports().removeReport(kept));
    EXPECT_EQ(bytesOf(storage, shared), std::nullopt);
}

TEST_P(StorageTest, KeepsNoMoreThanTheRetention)
{
    DataFolder storage(place, Access::Serve);
    ReportStore &reports = storage.reports();
    const std::int64_t now = 100 * day;
    const auto add = [&](const std::string &bundle, std::int64_t age) {
        return addReport(storage, R"({"age":)" + std::to_string(1000000 + age) + "}", bundle, now - age).id;
    };
    const std::int64_t old = add("aged", 3 * day + 1);
    add("aged", 3 * day);
    add("unlimited", 90 * day);
    const std::int64_t beyond = add("sized", 3);
    add("sized", 2);
    add("sized", 1);
    const std::int64_t size = reports.applications().at(1).bytes;
    EXPECT_TRUE(reports.setRetention("aged", {3, std::nullopt}));
    EXPECT_TRUE(reports.setRetention("sized", {std::nullopt, size - 1}));
    EXPECT_FALSE(reports.setRetention("unknown", {1, 1}));
    EXPECT_EQ(reports.applications().at(0).retention.maximumAgeDays, 3);
    EXPECT_EQ(reports.applications().at(0).retention.maximumBytes, std::nullopt);

    Maintenance(storage.files(), reports).applyRetention(now);
    EXPECT_EQ(reports.page({}).total, 4);
    EXPECT_FALSE(reports.report(old));
    EXPECT_FALSE(reports.report(beyond));
    EXPECT_TRUE(reports.setRetention("aged", {}));
    Maintenance(storage.files(), reports).applyRetention(now + 1000 * day);
    EXPECT_EQ(reports.page({}).total, 4);
}

TEST_P(StorageTest, TakesTheRetentionFromACommand)
{
    DataFolder storage(place, Access::Serve);
    addReport(storage, "{}");
    const auto run = [&](const std::string &bundle, std::vector<std::string> words) {
        words.insert(words.begin(), {"retention", bundle});
        for (const std::string &option : optionsOf(place))
            words.push_back(option);
        return runReceiver(words);
    };
    EXPECT_EQ(run(bundleId, {"--max-age-days", "30", "--max-megabytes", "2"}).output,
              "max_age_days: 30\nmax_bytes: 2097152\n");
    EXPECT_EQ(run(bundleId, {"--max-age-days", "0"}).output, "max_age_days: none\nmax_bytes: 2097152\n");
    EXPECT_EQ(run(bundleId, {}).output, "max_age_days: none\nmax_bytes: 2097152\n");
    const Retention retention = storage.reports().applications().at(0).retention;
    EXPECT_EQ(retention.maximumAgeDays, std::nullopt);
    EXPECT_EQ(retention.maximumBytes, 2097152);
    EXPECT_EQ(run("unknown", {"--max-age-days", "1"}).code, 1);
    EXPECT_EQ(run(bundleId, {"--max-age-days", "36501"}).code, 2);
}

TEST_P(StorageTest, StopsRemovingWhenTheRetentionIsLifted)
{
    DataFolder storage(place, Access::Serve);
    Maintenance maintenance(storage.files(), storage.reports());
    for (int i = 0; i < 101; ++i)
        addReport(storage, "{\"number\":" + std::to_string(i) + "}");
    storage.reports().setRetention(bundleId, {1, std::nullopt});
    EXPECT_TRUE(maintenance.applyRetention(2 * day));
    storage.reports().setRetention(bundleId, {});
    EXPECT_FALSE(maintenance.applyRetention(2 * day));
    EXPECT_EQ(storage.reports().page({}).total, 1);
}

TEST_P(StorageTest, ListsAndSearches)
{
    DataFolder storage(place, Access::Serve);
    ReportStore &reports = storage.reports();
    const auto add = [&](const std::string &bundle, std::int64_t received, const std::string &facts) {
        return addReport(storage, "{" + facts + "}", bundle, received).id;
    };
    const std::int64_t first
        = add("org.a", 1000, R"("description":" \n100% ÄRGER\nmore","app_version":"1.0","device":"Phone")");
    const std::int64_t second = add(
        "org.b", 3000, R"("description":"1000 cats","tester_email":"Eve@example.org","app_version":"2.0")");
    const std::int64_t third
        = add("org.b", 2000, R"("app_version":"2.0","device":"Tablet","os_version":"17")");
    const auto ids = [&](const ReportQuery &query) {
        std::vector<std::int64_t> found;
        for (const ReportRow &row : reports.page(query).rows)
            found.push_back(row.id);
        return found;
    };
    EXPECT_THAT(ids({}), ElementsAre(second, third, first));
    EXPECT_THAT(ids({.search = "ärger"}), ElementsAre(first));
    EXPECT_THAT(ids({.search = "100%"}), ElementsAre(first));
    EXPECT_THAT(ids({.search = "eve@EXAMPLE"}), ElementsAre(second));
    EXPECT_THAT(ids({.search = std::string("\\'\0", 3)}), ElementsAre());
    EXPECT_THAT(ids({.bundleId = "org.b", .appVersion = "2.0", .device = "Tablet"}), ElementsAre(third));
    EXPECT_THAT(ids({.from = 1000, .to = 3000, .isDescending = false}), ElementsAre(first, third));
    EXPECT_THAT(ids({.sort = ReportQuery::Sort::AppVersion}), ElementsAre(third, second, first));
    EXPECT_THAT(ids({.page = 2, .size = 2}), ElementsAre(first));
    const ReportPage page = reports.page({.bundleId = "org.a"});
    EXPECT_EQ(page.total, 1);
    EXPECT_EQ(page.newest, third);
    EXPECT_EQ(page.rows.at(0).summary, "100% ÄRGER");
    EXPECT_THAT(reports.filters("").versions, ElementsAre("2.0", "1.0"));
    EXPECT_THAT(reports.filters("org.b").devices, ElementsAre("Tablet"));
    EXPECT_EQ(reports.applications().at(1).reports, 2);
    EXPECT_EQ(reports.applications().at(1).lastReceived, 3000);
}

TEST_P(StorageTest, ServesWithIt)
{
    TestReceiver receiver(optionsOf(place), {"--max-file-size", "2000000"});
    Client client = receiver.client();
    const std::string bytes(1000000, '\xab');
    const std::string url = client.upload("a", bytes).text("url");
    EXPECT_EQ(client.upload("cut", std::string(3000000, 'x')).status, 413);
    EXPECT_EQ(client.request("GET", Poco::URI(url).getPath()).body, bytes);
    EXPECT_EQ(client.sendReport("{\"screenshot_url\":\"" + url + "\"}").status, 200);
    EXPECT_EQ(client.sendReport(std::string("{\"a\":\"\0\"}", 9)).status, 400);
    EXPECT_EQ(client.sendReport("{\"a\":\"\xed\xa0\x80\"}").status, 400);
    EXPECT_EQ(
        client.sendReport(R"({"screenshot_url":"/\u0000","files":[{"url":"/é"}],"description":"\u0000x"})")
            .status,
        200);
    EXPECT_EQ(client.post("/api/1.0/issue_tracking/apps", R"({"bundle_id":"b","os":"\u0000","platform":""})")
                  .status,
              200);
    EXPECT_EQ(client.upload("\xed\xa0\x80", "x").status, 200);
    EXPECT_EQ(client.request("GET", "/api/1.0/files/%ff%00").status, 404);
    ASSERT_TRUE(receiver.setArchived(true));
    EXPECT_EQ(client.sendReport("{}").status, 403);
    EXPECT_EQ(receiver.reports()->size(), 2U);
    EXPECT_EQ(receiver.stop(), 0);
}

class FolderTest : public ReceiverTest
{
};

TEST_F(FolderTest, ReadsBesideAWriterAndWithoutWriting)
{
    DataFolder storage({data}, Access::Serve);
    storage.reports().addReport(newReport(bundleId, "{}", 0));
    storage.database().write([&](Poco::Data::Session &) {
        const Result table = runReceiver({"reports", "--data", data.string()});
        EXPECT_EQ(table.code, 0);
        EXPECT_THAT(table.output, testing::HasSubstr(bundleId));
    });
}

TEST_F(FolderTest, LeavesNothingOfARemovedReport)
{
    DataFolder storage({data}, Access::Serve);
    const std::string word = "unforgettable";
    const auto filesWithIt = [&] {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::recursive_directory_iterator(data)) {
            if (entry.is_regular_file() && readFile(entry.path()).find(word) != std::string::npos)
                names.push_back(entry.path().filename());
        }
        return names;
    };
    const auto add = [&](const std::string &text) {
        return storage.reports().addReport(newReport(bundleId, R"({"description":")" + text + "\"}", 0))->id;
    };
    add("before");
    const std::int64_t id = add(word);
    add("after");
    EXPECT_FALSE(filesWithIt().empty());
    storage.database().readSnapshot([&](Poco::Data::Session &session) {
        std::string json;
        session << "SELECT max(json) FROM report_documents", Poco::Data::Keywords::into(json),
            Poco::Data::Keywords::now;
        EXPECT_TRUE(storage.reports().removeReport(id));
        EXPECT_FALSE(filesWithIt().empty()) << "an export still reads it";
    });
    storage.reports().removeUnreportedFiles(0);
    EXPECT_THAT(filesWithIt(), ElementsAre());
}

TEST_F(FolderTest, ExplainsLostBytes)
{
    start();
    Client client = receiver->client();
    const auto path = [&](const std::string &bytes) {
        return Poco::URI(client.upload("a", bytes).text("url")).getPath();
    };
    const std::string gone = path("gone");
    const std::string unreadable = path("unreadable");
    for (const auto &entry : std::filesystem::recursive_directory_iterator(data / "files")) {
        if (!entry.is_regular_file() || readFile(entry.path()) != "unreadable")
            continue;
        std::filesystem::remove(entry.path());
        std::filesystem::create_symlink(entry.path(), entry.path());
        break;
    }
    EXPECT_EQ(client.request("GET", unreadable).status, 503);
    std::filesystem::remove_all(data / "files");
    EXPECT_EQ(client.request("GET", gone).status, 500);
    EXPECT_EQ(client.upload("a", "b").status, 503);
    EXPECT_EQ(client.sendReport("{}").status, 200);
}

} // namespace

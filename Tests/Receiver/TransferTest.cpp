#include "Storage/StorageError.h"
#include "Support/StorageFixture.h"
#include "Transfer/Export.h"
#include "Transfer/Import.h"
#include "Transfer/TarReader.h"
#include "Transfer/TarWriter.h"

#include <gmock/gmock.h>

#include <atomic>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace wexel::receiver;
using namespace Poco::Data::Keywords;
using Access = DataFolder::Access;
using testing::HasSubstr;

class TransferTest : public StorageFixture
{
protected:
    Result run(const std::string &command, const StoragePlace &where)
    {
        std::vector<std::string> words = {command, file};
        for (const std::string &option : optionsOf(where))
            words.push_back(option);
        return runReceiver(words);
    }

    static ImportResult importFrom(const std::string &from, DataFolder &target)
    {
        TarReader tar(from);
        readManifest(tar);
        ImportResult result;
        wexel::receiver::importFrom(tar, target, result);
        return result;
    }

    std::string file = folder.path() / "file.tar";
};

INSTANTIATE_TEST_SUITE_P(, TransferTest,
                         testing::Values(Keeping::Sqlite, Keeping::PostgreSql, Keeping::PostgreSqlWithFolder),
                         nameOf);

TEST_P(TransferTest, MovesEverythingToAnotherInbox)
{
    const std::string bytes = std::string("\0\xff", 2) + std::string(700000, 'b');
    std::string path;
    std::string json;
    {
        TestReceiver receiver(optionsOf(place), {});
        Client client = receiver.client();
        const std::string url = client.upload("é.png", bytes).text("url");
        path = Poco::URI(url).getPath();
        json = R"({ "screenshot_url":")" + url + R"(","description":"\u0000é","files":[{"url":")" + url
            + R"("},{"url":"http://elsewhere/x"}]})";
        EXPECT_EQ(client.sendReport(json).status, 200);
        EXPECT_EQ(client.sendReport("{}", "org.off").status, 200);
        std::vector<std::string> words = {"client", "add", "moved", "--bundle", bundleId};
        for (const std::string &option : optionsOf(place))
            words.push_back(option);
        EXPECT_EQ(runReceiver(words).code, 0);
        EXPECT_TRUE(
            DataFolder(place, Access::Change).reports().setRetention(bundleId, {36500, std::nullopt}));
        EXPECT_THAT(run("backup", place).output, HasSubstr("2 reports written\n"));
        EXPECT_EQ(receiver.stop(), 0);
    }
    const StoragePlace target = newPlace();
    if (!target.data.empty())
        std::filesystem::create_directory(target.data); // somebody else may have to
    EXPECT_EQ(run("import", target).output,
              "2 reports imported, 0 were known, 0 were deleted here and are not taken again\n"
              "1 applications have limits for what is kept: the next start removes what is beyond them, and "
              "a server that runs does so within an hour\n"
              "The dashboard's password was taken\n"
              "1 clients were taken, 0 were known and stay as they are here\n");
    EXPECT_TRUE(DataFolder(target, Access::Change).reports().removeReport(2));
    EXPECT_EQ(run("import", target).output,
              "0 reports imported, 1 were known, 1 were deleted here and are not taken again\n"
              "1 applications have limits for what is kept: the next start removes what is beyond them, and "
              "a server that runs does so within an hour\n"
              "The dashboard's password was not taken: the one that was set here stays\n"
              "0 clients were taken, 1 were known and stay as they are here\n");
    TestReceiver receiver(optionsOf(target), {});
    Client client = receiver.client();
    EXPECT_EQ(client.request("GET", path).body, bytes) << "addresses must stay good";
    EXPECT_EQ(client.sendReport(json).json()->getValue<int>("id"), 1) << "the report is known";
    EXPECT_EQ(receiver.reports()->size(), 1U);
    std::vector<std::string> words = {"client", "list"};
    for (const std::string &option : optionsOf(target))
        words.push_back(option);
    EXPECT_THAT(runReceiver(words).output, HasSubstr("moved"));
    EXPECT_EQ(receiver.stop(), 0);
}

TEST_P(TransferTest, KeepsWhatApplicationsWereTold)
{
    DataFolder source(place, Access::Serve);
    addReport(source, "{}", "off", 77);
    source.reports().setArchived("off", true);
    source.reports().setRetention("off", {5, 6000});
    exportTo(file, source, ExportScope::Reports);
    const std::string whole = readFile(file);
    DataFolder target(newPlace(), Access::Serve);
    writeFile(file, whole.substr(0, whole.find("reports/1/")));
    EXPECT_THROW(importFrom(file, target), std::runtime_error);
    writeFile(file, whole);
    EXPECT_EQ(importFrom(file, target).reports, 1);
    const ApplicationOverview application = target.reports().applications().at(0);
    EXPECT_TRUE(application.archived);
    EXPECT_EQ(application.retention.maximumAgeDays, 5);
    EXPECT_EQ(application.retention.maximumBytes, 6000);
    EXPECT_EQ(application.lastReceived, 77);
    // What this inbox was told since stays.
    target.reports().setArchived("off", false);
    EXPECT_EQ(importFrom(file, target).known, 1);
    EXPECT_FALSE(target.reports().isArchived("off"));
}

TEST_P(TransferTest, IsConsistentWhileReportsArriveAndGo)
{
    TestReceiver receiver(optionsOf(place), {});
    DataFolder source(place, Access::Change);
    std::atomic<int> sent = 0;
    std::atomic<bool> isEnough = false;
    std::thread sender([&] {
        Client client = receiver.client();
        while (!isEnough) {
            const std::string number = std::to_string(++sent);
            const std::string url = client.upload("a", number + std::string(100000, 'x')).text("url");
            const Reply reply = client.sendReport("{\"screenshot_url\":\"" + url + "\"}");
            if (sent % 3 == 0)
                source.reports().removeReport(reply.json()->getValue<int>("id"));
        }
    });
    while (sent < 20)
        std::this_thread::yield();
    const ExportResult result = exportTo(file, source, ExportScope::Everything);
    isEnough = true;
    sender.join();
    EXPECT_GE(result.reports, 12);
    DataFolder target(newPlace(), Access::Serve);
    EXPECT_EQ(importFrom(file, target).reports, result.reports);
    for (const ReportSummary &report : target.reports().reports()) {
        const StoredFile screenshot = target.reports().filesOf(report.id).screenshot.value();
        EXPECT_EQ(sha256(bytesOf(target, screenshot).value()), screenshot.sha256);
    }
    EXPECT_EQ(receiver.stop(), 0);
}

TEST_P(TransferTest, ExplainsDamagedFiles)
{
    DataFolder source(place, Access::Serve);
    const StoredFile screenshot = addFile(source, std::string(100000, 'y'));
    for (int i = 0; i < 3; ++i)
        addReport(source,
                  "{\"screenshot_url\":\"" + addressOf(screenshot) + "\",\"n\":" + std::to_string(i) + "}");
    exportTo(file, source, ExportScope::Reports);
    const std::string whole = readFile(file);
    const StoragePlace where = newPlace();
    DataFolder target(where, Access::Serve);
    const auto complaint = [&](const std::string &bytes) {
        writeFile(file, bytes);
        try {
            importFrom(file, target);
        } catch (const std::exception &error) {
            return std::string(error.what());
        }
        return std::string("none");
    };
    std::string changed = whole;
    changed[whole.find("yyyy")] = 'z';
    EXPECT_THAT(complaint(changed), HasSubstr("damaged"));
    EXPECT_THAT(complaint("no tar"), HasSubstr("can't be imported"));
    EXPECT_EQ(target.reports().page({}).total, 0) << "a report came without its file";
    // Cut anywhere it complains, and what is imported is whole.
    for (std::size_t size = 0; size < whole.size() - 10240; size += whole.size() / 40)
        EXPECT_THAT(complaint(whole.substr(0, size)), HasSubstr("can't be imported")) << size;
    for (const ReportSummary &report : target.reports().reports())
        EXPECT_EQ(bytesOf(target, target.reports().filesOf(report.id).screenshot.value()),
                  std::string(100000, 'y'));
    EXPECT_EQ(complaint(whole), "none");
    EXPECT_EQ(target.reports().page({}).total, 3);
    target.reports().removeReport(1);
    target.reports().removeReport(2);
    target.database().write([](Poco::Data::Session &session) {
        session << "DELETE FROM report_digests", now; // so that they come again
    });
    writeFile(file, whole.substr(0, whole.find("reports/3/")));
    const Result cut = run("import", where);
    EXPECT_THAT(
        cut.output,
        testing::AllOf(HasSubstr("can't be imported"), HasSubstr("2 reports imported, 0 were known")));
    EXPECT_EQ(cut.code, 1);
    writeFile(file, "no tar");
    const StoragePlace none = newPlace();
    EXPECT_EQ(run("import", none).code, 1);
    EXPECT_EQ(run("export", none).code, 1) << "it made an inbox";
    EXPECT_EQ(run("export", {folder.path() / "nowhere"}).code, 1);
}

TEST_P(TransferTest, BringsEveryReportOfASharedFileThoughOneWasDeletedHere)
{
    DataFolder source(place, Access::Serve);
    const StoredFile shared = addFile(source, "shared");
    for (const std::string number : {"1", "2", "3"})
        addReport(source, R"({"screenshot_url":")" + addressOf(shared) + R"(","n":)" + number + "}");
    exportTo(file, source, ExportScope::Reports);
    const std::string whole = readFile(file);
    DataFolder target(newPlace(), Access::Serve);
    writeFile(file, whole.substr(0, whole.find("reports/2/")));
    EXPECT_THROW(importFrom(file, target), std::runtime_error);
    EXPECT_TRUE(target.reports().removeReport(1));
    writeFile(file, whole);
    EXPECT_EQ(importFrom(file, target).reports, 2);
    EXPECT_EQ(bytesOf(target, target.reports().filesOf(3).screenshot.value()), "shared");
    for (const ReportSummary &report : target.reports().reports())
        target.reports().removeReport(report.id);
    EXPECT_EQ(importFrom(file, target).deleted, 3);
    EXPECT_FALSE(target.reports().file(shared.id)) << "what was deleted came back";
}

TEST_P(TransferTest, KeepsAReportWhoseFileIsLostAndBringsTheFileBack)
{
    const std::string bytes(300000, 'b');
    DataFolder source(place, Access::Serve);
    const StoredFile screenshot = addFile(source, bytes);
    addReport(source, R"({"screenshot_url":")" + addressOf(screenshot) + "\"}");
    exportTo(file, source, ExportScope::Reports);
    const std::string good = readFile(file);
    source.files().remove(screenshot.location);
    const Result result = run("backup", place);
    EXPECT_THAT(result.output, HasSubstr("1 reports written; the bytes of 1 files are lost"));
    EXPECT_EQ(result.code, 1);
    DataFolder target(newPlace(), Access::Serve);
    EXPECT_EQ(importFrom(file, target).reports, 1);
    const auto imported = [&] { return target.reports().filesOf(1).screenshot.value(); };
    EXPECT_EQ(imported().sha256, screenshot.sha256);
    EXPECT_EQ(bytesOf(target, imported()), std::nullopt);
    writeFile(file, good);
    EXPECT_EQ(importFrom(file, target).known, 1);
    EXPECT_EQ(bytesOf(target, imported()), bytes);
}

TEST_P(TransferTest, GivesWhatRootImportsToTheOwnerOfTheFolder)
{
    if (GetParam() == Keeping::PostgreSql || ::geteuid() != 0)
        GTEST_SKIP() << "there is no folder, or nobody who could give away";
    {
        DataFolder source(place, Access::Serve);
        addReport(source, R"({"screenshot_url":")" + addressOf(addFile(source, "bytes")) + "\"}");
        exportTo(file, source, ExportScope::Reports);
    }
    const StoragePlace target = newPlace();
    const std::filesystem::path owned = target.data.empty() ? target.files : target.data;
    constexpr uid_t owner = 12345;
    std::filesystem::create_directory(owned);
    ASSERT_EQ(::chown(owned.c_str(), owner, owner), 0);
    EXPECT_EQ(run("import", target).code, 0);
    std::size_t files = 0;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(owned)) {
        struct stat state = {};
        ASSERT_EQ(::stat(entry.path().c_str(), &state), 0);
        EXPECT_EQ(state.st_uid, owner) << entry.path();
        files += entry.is_regular_file() ? 1 : 0;
    }
    EXPECT_GE(files, 2U);
}

TEST_P(TransferTest, DoesNotTakeBytesForLostThatCantBeReadNow)
{
    if (GetParam() == Keeping::PostgreSql)
        GTEST_SKIP() << "its errors are never taken for an answer";
    DataFolder source(place, Access::Serve);
    const StoredFile screenshot = addFile(source, "bytes");
    addReport(source, R"({"screenshot_url":")" + addressOf(screenshot) + "\"}");
    const auto path = source.files().pathOf(screenshot.location);
    std::filesystem::remove(path);
    std::filesystem::create_symlink(path, path); // which nobody can open, not even root
    EXPECT_THROW(exportTo(file, source, ExportScope::Reports), StorageError);
    EXPECT_FALSE(std::filesystem::exists(file));
    std::filesystem::remove(path);
    std::filesystem::create_symlink("/proc/self/mem", path); // opens, and fails to be read
    const auto stream = source.files().open(screenshot.location, 0);
    EXPECT_THROW(stream->get(), StorageError);
}

TEST_P(TransferTest, RunsBesideAServerThatStartsAndChangesNoSchema)
{
    const std::string location = randomId();
    DataFolder import(place, Access::Fill);
    const auto incoming = import.files().receive(location);
    incoming->write("bytes");
    DataFolder server(place, Access::Serve);
    EXPECT_NO_THROW(incoming->publish());
    EXPECT_TRUE(server.files().open(location, 5));
    const auto write = [&](const std::string &statement) {
        server.database().write([&](Poco::Data::Session &session) { session << statement, now; });
    };
    write("UPDATE schema_version SET version = version - 1");
    EXPECT_THROW(DataFolder(place, Access::Fill), StorageError);
}

TEST_P(TransferTest, RefusesWhatNoExportHolds)
{
    using Entries = std::vector<std::pair<std::string, std::string>>;
    const std::string id(32, 'a');
    const auto application = [](const std::string &days, const std::string &bytes) {
        return R"({"bundle_id":"b","os":"","platform":"","archived":false,"max_age_days":)" + days
            + R"(,"max_bytes":)" + bytes + "}\n";
    };
    const auto about = [](const std::string &received, const std::string &fileId, const std::string &hash) {
        return R"({"id":1,"received":)" + received + R"(,"bundle_id":"b","screenshot":{"id":")" + fileId
            + R"(","name":"n","size":1,"content_type":"","lost":true,"sha256":")" + hash
            + "\"},\"files\":[]}";
    };
    const auto client = [](const std::string &name, const std::string &bundle) {
        return R"({"client":")" + name + R"(","secret_digest":"d","created":1,"revoked":0,"bundle_ids":[")"
            + bundle + "\"]}\n";
    };
    const std::string hash(64, '0');
    const std::vector<std::pair<Entries, std::string>> cases = {
        {{{"files/../../evil", "x"}}, "id is wrong"},
        {{{"/etc/passwd", "x"}}, "unknown entry"},
        {{{"applications.jsonl", application("-1", "null")}}, "max_age_days"},
        {{{"applications.jsonl", application("null", "9000000000000000000")}}, "max_bytes"},
        {{{"reports/1/report.json", "{}"}, {"reports/1/about.json", about("-1", id, hash)}}, "received"},
        {{{"reports/1/report.json", "{}"}, {"reports/1/about.json", about("1", "../x", hash)}},
         "id is wrong"},
        {{{"reports/1/report.json", "{}"}, {"reports/1/about.json", about("1", id, "0")}}, "id is wrong"},
        {{{"reports/1/report.json", "[]"}, {"reports/1/about.json", about("1", id, hash)}}, "JSON object"},
        {{{"access.jsonl", client(R"(\u001b[31m)", "b")}}, "A client's id"},
        {{{"access.jsonl", client("c", "../b")}}, "bundle"},
        {{{"end.json", R"({"reports":1})"}}, "does not hold the reports"},
        {{{"end.json", R"({"reports":0})"}, {"files/" + id, "x"}}, "does not hold the reports"},
    };
    DataFolder target(place, Access::Serve);
    const auto expectComplaint = [&](const std::string &why) {
        try {
            importFrom(file, target);
            ADD_FAILURE() << "took what is wrong: " << why;
        } catch (const std::runtime_error &error) {
            EXPECT_THAT(error.what(), testing::AllOf(HasSubstr(file), HasSubstr(why)));
        }
    };
    const std::string manifest = R"({"format":1})";
    for (const auto &[entries, why] : cases) {
        TarWriter tar(file);
        tar.add("manifest.json", manifest, 0);
        for (const auto &[name, content] : entries)
            tar.add(name, content, 0);
        tar.finish();
        expectComplaint(why);
    }
    writeFile(folder.path() / "manifest.json", manifest);
    std::filesystem::create_directory(folder.path() / "files");
    const std::string files = "files/" + id;
    writeFile(folder.path() / files, "");
    std::filesystem::resize_file(folder.path() / files, 1U << 30);
    const std::vector<std::pair<std::string, std::string>> odd = {{files, "holes"}, {"files", "no file"}};
    for (const auto &[name, why] : odd) {
        EXPECT_EQ(Program({"tar", "-Scf", file, "-C", folder.path(), "manifest.json", name}).wait(), 0);
        expectComplaint(why);
    }
    EXPECT_EQ(target.reports().page({}).total, 0);
    EXPECT_FALSE(target.reports().file(id));
}

TEST(TarWriterTest, SaysThatTheDiskIsFull)
{
    const TemporaryFolder folder;
    const DataFolder source({folder.path()}, Access::Serve);
    Program backup({"/bin/sh", "-c", WEXEL_RECEIVER " backup - --data \"$0\" >/dev/full", folder.path()},
                   Program::Output::Both);
    EXPECT_THAT(backup.readAll(), testing::EndsWith(": No space left on device\n"));
    EXPECT_EQ(backup.wait(), 1);
}

TEST(TarWriterTest, TakesThePlaceOfFilesOnly)
{
    const TemporaryFolder folder;
    const std::string device = folder.path() / "device";
    ASSERT_EQ(::mkfifo(device.c_str(), 0600), 0);
    EXPECT_THROW(TarWriter{device}, std::runtime_error);
    std::filesystem::create_symlink(device, folder.path() / "link");
    EXPECT_THROW(TarWriter{folder.path() / "link"}, std::runtime_error);
    EXPECT_THROW(TarWriter{folder.path()}, std::runtime_error);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
}

TEST(TarWriterTest, TwoWriteToOneName)
{
    const TemporaryFolder folder;
    const std::string file = folder.path() / "file.tar";
    TarWriter one(file);
    TarWriter other(file);
    one.add("one", std::string(100000, '1'), 0);
    other.add("other", std::string(100000, '2'), 0);
    one.finish();
    other.finish();
    TarReader reader(file);
    EXPECT_EQ(reader.next(), "other");
    EXPECT_EQ(reader.readAll(100000), std::string(100000, '2'));
    EXPECT_EQ(reader.next(), "");
}

} // namespace

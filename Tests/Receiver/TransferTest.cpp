#include "Storage/StorageError.h"
#include "Support/StorageFixture.h"
#include "Transfer/Export.h"
#include "Transfer/Import.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace {

using namespace wexel::receiver;
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

    std::string file = folder.path() / "file.tar";
};

INSTANTIATE_TEST_SUITE_P(, TransferTest, testing::Values(Keeping::Sqlite, Keeping::PostgreSql), nameOf);

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
        EXPECT_THAT(run("backup", place).output, HasSubstr("2 reports written\n"));
        EXPECT_EQ(receiver.stop(), 0);
    }
    const StoragePlace target = newPlace();
    EXPECT_THAT(run("import", target).output, HasSubstr("2 reports imported, 0 were known\n"));
    EXPECT_THAT(run("import", target).output, HasSubstr("0 reports imported, 2 were known\n"));
    TestReceiver receiver(optionsOf(target), {});
    Client client = receiver.client();
    EXPECT_EQ(client.request("GET", path).body, bytes) << "addresses must stay good";
    EXPECT_EQ(client.sendReport(json).json()->getValue<int>("id"), 1) << "the report is known";
    EXPECT_EQ(receiver.reports()->size(), 2U);
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
    DataFolder target(newPlace(), Access::Serve);
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
    DataFolder target(newPlace(), Access::Serve);
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
    EXPECT_EQ(run("export", {folder.path() / "nowhere"}).code, 1);
}

} // namespace

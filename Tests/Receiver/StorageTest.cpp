#include "Secrets.h"
#include "Storage/DataFolder.h"
#include "Storage/StorageError.h"
#include "Support/TestReceiver.h"

#include <gmock/gmock.h>

namespace {

using namespace wexel::receiver;

constexpr std::int64_t day = std::int64_t(24) * 3600 * 1000;

class StorageTest : public ReceiverTest
{
protected:
    /// An upload of \a bytes that arrived \a age milliseconds ago.
    static StoredFile addFile(DataFolder &folder, const std::string &bytes, std::int64_t age)
    {
        const std::string id = randomId();
        const auto incoming = folder.files().receive(id);
        incoming->write(bytes);
        const std::string sha256 = incoming->publish();
        const StoredFile file = {id, sha256, "name", "type", bytes.size(), currentMilliseconds() - age, id};
        folder.reports().addFile(file);
        return file;
    }
};

TEST_F(StorageTest, TokensExpire)
{
    DataFolder folder(data, DataFolder::Access::Serve);
    const std::string token = folder.tokens().issue("client", 10, 1000);
    EXPECT_EQ(folder.tokens().clientOf(token, 10999), "client");
    EXPECT_EQ(folder.tokens().clientOf(token, 11000), std::nullopt);
    folder.tokens().issue("client", 10, 11000);
    EXPECT_EQ(folder.tokens().clientOf(token, 1000), std::nullopt) << "an expired token is kept";
}

TEST_F(StorageTest, SweepsWhatNobodyNeeds)
{
    std::optional<DataFolder> folder(std::in_place, data, DataFolder::Access::Serve);
    const StoredFile reported = addFile(*folder, "reported", 30 * day);
    const StoredFile recent = addFile(*folder, "recent", 6 * day);
    const StoredFile abandoned = addFile(*folder, "abandoned", 8 * day);
    folder->reports().addReport({"org.example.app", "{}", reported.id, {}, 0});
    const auto rowless = folder->files().receive(randomId());
    rowless->write("rowless");
    rowless->publish();
    const auto files = [&] {
        using Entries = std::filesystem::recursive_directory_iterator;
        return std::count_if(Entries(data / "files"), Entries(),
                             [](const auto &entry) { return entry.is_regular_file(); });
    };
    EXPECT_EQ(files(), 4);

    folder.reset();
    folder.emplace(data, DataFolder::Access::Serve);
    EXPECT_EQ(readFile(folder->files().pathOf(reported.location)), "reported");
    EXPECT_EQ(readFile(folder->files().pathOf(recent.location)), "recent");
    EXPECT_TRUE(folder->reports().file(recent.id));
    EXPECT_FALSE(folder->reports().file(abandoned.id));
    EXPECT_EQ(files(), 2);
}

TEST_F(StorageTest, ReadsBesideAWriterAndWithoutWriting)
{
    DataFolder folder(data, DataFolder::Access::Serve);
    folder.reports().addReport({"org.example.app", "{}", "", {}, 0});
    Database database(data / "receiver.sqlite", Database::Mode::Write);
    database.write([&](Poco::Data::Session &) {
        const Result table = runReceiver({"reports", "--data", data.string()});
        EXPECT_EQ(table.code, 0);
        EXPECT_THAT(table.output, testing::HasSubstr("org.example.app"));
    });
    DataFolder reader(data, DataFolder::Access::Read);
    EXPECT_THROW(reader.reports().setArchived("org.example.app", true), StorageError);
}

TEST_F(StorageTest, ExplainsLostBytes)
{
    start();
    Client client = receiver->client();
    const auto path = [&](const std::string &bytes) {
        return Poco::URI(client.upload("a", bytes).text("url")).getPath();
    };
    const std::string gone = path("gone");
    std::filesystem::remove_all(data / "files");
    EXPECT_EQ(client.request("GET", gone).status, 500);
    EXPECT_EQ(client.upload("a", "b").status, 503);
    EXPECT_EQ(client.sendReport("{}").status, 200);
}

} // namespace

#include "Support/TestReceiver.h"

#include <gmock/gmock.h>

#include <chrono>

namespace {

using testing::HasSubstr;

class CommandsTest : public ReceiverTest
{
};

TEST_F(CommandsTest, ExplainsWrongOptions)
{
    const auto complaint = [&](std::vector<std::string> arguments) {
        const Result result = runReceiver(std::move(arguments));
        EXPECT_EQ(result.code, 2) << result.output;
        return result.output;
    };
    const std::string folderName = data.string();
    EXPECT_THAT(complaint({}), HasSubstr("--data"));

    EXPECT_THAT(complaint({"--data", folderName, "--client", "nosecret"}), HasSubstr("ID:SECRET"));
    EXPECT_THAT(complaint({"--data", folderName, "--client", "a:b", "--client", "a:c"}), HasSubstr("twice"));
    EXPECT_THAT(complaint({"--nonsense"}), HasSubstr("nonsense"));
    EXPECT_THAT(complaint({"dance", "--data", folderName}), HasSubstr("dance"));
    EXPECT_THAT(complaint({"archive", "--data", folderName}), HasSubstr("BUNDLE_ID"));
    EXPECT_THAT(complaint({"archive", "../x", "--data", folderName}), HasSubstr("bundle id"));
    EXPECT_THAT(complaint({"--data", folderName, "--client", "a:b", "--listen", "here"}),
                HasSubstr("HOST:PORT"));
    EXPECT_THAT(complaint({"--data", folderName, "--client", "a:b", "--listen", "::1:x"}),
                HasSubstr("number"));
    EXPECT_THAT(complaint({"--data", folderName, "--listen", "[::1]:99999"}),
                HasSubstr("--listen: the port must be a number from 0 to 65535"));
    EXPECT_THAT(complaint({"--dat", folderName}), HasSubstr("--dat may be --data or --database\n"));
    EXPECT_THAT(complaint({"--max-things=3"}), HasSubstr("Unknown option --max-things\n"));
    const std::string clients = folder.path() / "clients";
    writeFile(clients, "# two\n\na:b\nnosecret\n");
    EXPECT_THAT(complaint({"--data", folderName, "--clients", clients}), HasSubstr(clients + " line 4: "));
    EXPECT_THAT(complaint({"--data", folderName, "--client", "a:b", "--request-timeout", "0"}),
                HasSubstr("1 to"));
    EXPECT_THAT(complaint({"--data", folderName, "--client", "a:b", "--tls-cert", "x"}),
                HasSubstr("--tls-key"));
    EXPECT_THAT(complaint({"--data", folderName, "--client", "a:b", "--public-url", "ftp://x"}),
                HasSubstr("--public-url"));
    EXPECT_THAT(complaint({"--data", folderName, "--listen", "0.0.0.0:0"}), HasSubstr("--public-url"));
    EXPECT_THAT(complaint({"--data", folderName, "--listen", "[::]:0"}), HasSubstr("--public-url"));
    const auto branding = folder.path() / "branding.json";
    writeFile(branding, R"({"text_color":"#fff"})");
    EXPECT_THAT(complaint({"--data", folderName, "--client", "a:b", "--white-labeling", branding.string()}),
                HasSubstr("\"background\""));
    EXPECT_THAT(complaint({"--data", folderName, "--database", "postgresql:///x"}), HasSubstr("exclude"));
    EXPECT_THAT(complaint({"--data", folderName, "--files", "x"}), HasSubstr("--files needs --database"));
    EXPECT_THAT(complaint({"--database", "mysql://x/y"}), HasSubstr("postgresql://"));
    EXPECT_THAT(complaint({"--database", "postgresql://a:b%20c@x/y"}), HasSubstr("blank"));
    EXPECT_THAT(complaint({"export", "--data", folderName}), HasSubstr("FILE"));
    const auto misused = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--data", folderName});
        return complaint(std::move(arguments));
    };
    EXPECT_THAT(misused({"--json"}), HasSubstr("--json does not go with the server"));
    EXPECT_THAT(misused({"backup", "x", "--json"}), HasSubstr("--json does not go with backup"));
    EXPECT_THAT(misused({"backup", "x", "--listen", "[::1]:5"}),
                HasSubstr("--listen does not go with backup"));
    EXPECT_THAT(misused({"client", "list", "--bundle", "a"}),
                HasSubstr("--bundle does not go with client list"));
    EXPECT_FALSE(std::filesystem::exists(data));
    EXPECT_EQ(runReceiver({"--help"}).code, 0);
    EXPECT_THAT(runReceiver({"--version"}).output, HasSubstr("wexel-receiver 1."));
}

TEST_F(CommandsTest, ExplainsUnusableFolders)
{
    const auto file = folder.path() / "file";
    writeFile(file, "");
    const Result notAFolder = runReceiver({"--data", file.string(), "--client", "a:b"});
    EXPECT_EQ(notAFolder.code, 1);
    EXPECT_THAT(notAFolder.output, HasSubstr(file.string()));
    EXPECT_THAT(runReceiver({"reports", "--data", data.string()}).output,
                HasSubstr("no wexel-receiver has served it"));
    EXPECT_FALSE(std::filesystem::exists(data));

    EXPECT_THAT(runReceiver({"reports", "--database", "postgresql://u:secret@/x?host=/nowhere"}).output,
                testing::MatchesRegex("wexel-receiver: postgresql:///nowhere/x: connection to server on "
                                      "socket \"/nowhere/[^\n]*No such file or directory[^\n]*\n"));

    start();
    EXPECT_EQ(std::filesystem::status(data).permissions(), std::filesystem::perms::owner_all);
    const Result second
        = runReceiver({"--data", data.string(), "--client", "a:b", "--listen", "127.0.0.1:0"});
    EXPECT_EQ(second.code, 1);
    EXPECT_THAT(second.output, HasSubstr("another wexel-receiver"));
    const std::string address = "127.0.0.1:" + std::to_string(receiver->url().getPort());
    const std::string other = data.string() + "2";
    const Result taken = runReceiver({"--data", other, "--client", "a:b", "--listen", address});
    EXPECT_EQ(taken.code, 1);
    EXPECT_THAT(taken.output, HasSubstr("Can't listen"));
    writeFile(file, "short\n");
    const Result weak = runReceiver({"--data", other, "--admin-password-file", file.string()});
    EXPECT_EQ(weak.code, 2);
    EXPECT_THAT(weak.output,
                HasSubstr("--admin-password-file " + file.string() + ": A password has at least"));
    EXPECT_FALSE(std::filesystem::exists(other)) << "a start that failed has left something";
}

TEST_F(CommandsTest, SaysAtOnceWhyADatabaseCantBeOpened)
{
    const std::filesystem::path database = data / "receiver.sqlite";
    const auto begun = std::chrono::steady_clock::now();
    const auto expectComplaint = [&](const std::string &why) {
        for (const std::vector<std::string> &command : {std::vector<std::string>{}, {"reports"}}) {
            std::vector<std::string> words = {"--data", data.string()};
            words.insert(words.begin(), command.begin(), command.end());
            EXPECT_EQ(runReceiver(words).output, "wexel-receiver: " + database.string() + ": " + why + '\n');
        }
    };
    std::filesystem::create_directory(data);
    writeFile(database, std::string(5000, 'x'));
    expectComplaint("file is not a database");
    std::filesystem::remove(database);
    std::filesystem::create_directory(database);
    expectComplaint("can't be used: Is a directory");
    std::filesystem::remove(database);
    std::filesystem::create_symlink(database, database);
    EXPECT_THAT(runReceiver({"reports", "--data", data.string()}).output, HasSubstr("symbolic links"));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(30));
}

TEST_F(CommandsTest, KeepsAFolderThatWasThereToTheOwner)
{
    using std::filesystem::perms;
    std::filesystem::create_directory(data);
    std::filesystem::permissions(data, perms(0755));
    start();
    receiver->client().upload("a", "b");
    for (const auto &entry : std::filesystem::recursive_directory_iterator(data))
        EXPECT_EQ(entry.status().permissions() & (perms::group_all | perms::others_all), perms::none)
            << entry.path();
}

TEST_F(CommandsTest, ArchivesWhatIsNotKnownButDoesNotAllowIt)
{
    start();
    const auto run = [&](const std::string &command) {
        return runReceiver({command, "org.example.new", "--data", data.string()});
    };
    const Result unknown = run("unarchive");
    EXPECT_EQ(unknown.code, 1);
    EXPECT_EQ(unknown.output, "wexel-receiver: org.example.new is not known\n");
    EXPECT_THAT(run("archive").output, HasSubstr("(it was not known before)"));
    EXPECT_EQ(run("unarchive").output, "org.example.new may send reports\n");
}

TEST_F(CommandsTest, ListsReportsAsATable)
{
    writeFile(folder.path() / "clients", "# the beta\n\nbeta:two\r\n");
    start({"--clients", (folder.path() / "clients").string()});
    Client client = receiver->stranger();
    client.authenticate("grant_type=client_credentials&client_id=beta&client_secret=two");
    const std::string url = client.upload("a", "12345").text("url");
    client.sendReport("{\"screenshot_url\":\"" + url + "\",\"files\":[{\"url\":\"http://elsewhere/x\"}]}");
    client.sendReport("{}", "org.example.%C3%A9");
    const Result table = runReceiver({"reports", "--data", data.string()});
    EXPECT_EQ(table.code, 0);
    EXPECT_THAT(table.output, testing::ContainsRegex("1 .*Z +5 +0 +org.example.app\n"));
    EXPECT_THAT(table.output, HasSubstr("org.example.\\xC3\\xA9\n"));
}

} // namespace

#include "Storage/PostgresDatabase.h"
#include "Storage/StorageError.h"
#include "Support/StorageFixture.h"

#include <array>
#include <atomic>
#include <barrier>
#include <map>
#include <mutex>
#include <thread>

namespace {

using namespace wexel::receiver;
using namespace Poco::Data::Keywords;

class SharedDatabaseTest : public testing::Test
{
protected:
    /// Sends reports with a file each, every one until it is answered, through the first receiver as long as it lives and
    /// then through the second. Keeps what was answered.
    void send(int sender, const TestReceiver &first, const TestReceiver &second, int count)
    {
        const TestReceiver *receiver = &first;
        std::optional<Client> client(receiver->client());
        for (int i = 0; i < count;) {
            const std::string name = std::to_string(sender) + '/' + std::to_string(i);
            try {
                const Reply upload = client->upload("a", name + std::string(300000, 'x'));
                const Reply reply = client->sendReport(
                    "{\"description\":\"" + name + "\",\"screenshot_url\":\"" + upload.text("url") + "\"}");
                ASSERT_EQ(reply.status, 200) << reply.body;
                const std::lock_guard lock(mutex);
                answered[name] = reply.json()->getValue<int>("id");
                ++i;
            } catch (const Poco::Exception &) { // It was killed: nobody knows whether the report was taken.
                receiver = &second;
                client.emplace(receiver->client());
            }
        }
    }

    const std::string address = PostgresServer::instance().newDatabase();
    std::mutex mutex;
    std::map<std::string, int> answered; ///< the report's id by its description; guarded by mutex
};

TEST_F(SharedDatabaseTest, KeepsEveryAnsweredReportOnceWhenAReceiverIsKilled)
{
    TestReceiver killed(std::vector<std::string>{"--database", address}, {});
    TestReceiver other(std::vector<std::string>{"--database", address}, {});
    constexpr int count = 30;
    std::array<std::thread, 4> senders;
    for (int i = 0; i < 4; ++i)
        senders.at(static_cast<std::size_t>(i)) = std::thread([&, i] { send(i, killed, other, count); });
    for (std::size_t done = 0; done < std::size_t(count);) {
        const std::lock_guard lock(mutex);
        done = answered.size();
    }
    killed.kill();
    for (std::thread &sender : senders)
        sender.join();

    std::map<std::string, int> stored;
    const auto reports = other.reports();
    for (unsigned i = 0; i < reports->size(); ++i) {
        const auto report = reports->getObject(i);
        const auto name = report->getObject("report")->getValue<std::string>("description");
        EXPECT_TRUE(stored.emplace(name, report->getValue<int>("id")).second) << name << " is there twice";
        const std::string path
            = "/api/1.0/files/" + report->getObject("screenshot")->getValue<std::string>("id");
        EXPECT_EQ(other.stranger().request("GET", path).body, name + std::string(300000, 'x'));
    }
    EXPECT_EQ(stored, answered);
    EXPECT_EQ(other.stop(), 0);
}

TEST_F(SharedDatabaseTest, IsSetUpByOneOfThoseThatStartAtOnce)
{
    const PostgresServer &server = PostgresServer::instance();
    for (int round = 0; round < 10; ++round) {
        const std::string database = PostgresServer::instance().newDatabase();
        std::barrier start(2);
        const auto open = [&] {
            start.arrive_and_wait();
            PostgresDatabase(database, Database::Mode::Serve);
        };
        std::thread other(open);
        open();
        other.join();
        // What they did is counted when they are gone. Whoever had been in the other's way would have rolled back.
        const std::string counted
            = " FROM pg_stat_database WHERE datname = '" + Poco::URI(database).getPath().substr(1) + '\'';
        while (server.run("SELECT numbackends" + counted) != "0\n")
            std::this_thread::yield();
        EXPECT_EQ(server.run("SELECT xact_rollback" + counted), "0\n");
    }
}

TEST_F(SharedDatabaseTest, ServesWithoutTheRightToMakeTables)
{
    PostgresDatabase owned(address, Database::Mode::Serve);
    const std::string serving
        = address.substr(0, address.find("user=")) + "user=serving&" + address.substr(address.find("host="));
    owned.write([](Poco::Data::Session &session) {
        session << "CREATE ROLE serving LOGIN", now;
        session << "GRANT ALL ON ALL TABLES IN SCHEMA public TO serving", now;
    });
    EXPECT_NO_THROW(PostgresDatabase(serving, Database::Mode::Serve));
}

TEST_F(SharedDatabaseTest, ComesBackAfterLostConnections)
{
    PostgresDatabase database(address, Database::Mode::Serve);
    const auto loseConnections = [] {
        PostgresServer::instance().run(
            "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname LIKE 'test%'");
    };
    loseConnections();
    int one = 0;
    database.read([&](Poco::Data::Session &session) { session << "SELECT 1", into(one), now; });
    EXPECT_EQ(one, 1);
    // In the middle nobody knows what happened.
    EXPECT_THROW(database.write([&](Poco::Data::Session &session) {
        loseConnections();
        session << "SELECT 1", into(one), now;
    }),
                 StorageError);
    database.write([&](Poco::Data::Session &session) { session << "SELECT 2", into(one), now; });
    EXPECT_EQ(one, 2);
}

TEST_F(SharedDatabaseTest, DoesNotWaitForeverForAStuckDatabase)
{
    constexpr std::chrono::milliseconds little(100);
    constexpr std::chrono::hours much(1);
    const auto query
        = [](const std::string &sql) { return [sql](Poco::Data::Session &session) { session << sql, now; }; };
    PostgresDatabase stuck(address, Database::Mode::Serve, {much, little, much});
    stuck.write([&](Poco::Data::Session &session) {
        session << "LOCK TABLE reports", now;
        EXPECT_THROW(stuck.read(query("SELECT count(*) FROM reports")), StorageError);
    });
    PostgresDatabase slow(address, Database::Mode::Serve, {much, much, little});
    EXPECT_THROW(slow.read(query("SELECT pg_sleep(3600)")), StorageError);
    // Each holds a session while the next asks for another, until there are none.
    PostgresDatabase busy(address, Database::Mode::Serve, {little, much, much});
    int held = 0;
    const std::function<void(Poco::Data::Session &)> hold = [&](Poco::Data::Session &) {
        ++held;
        busy.read(hold);
    };
    EXPECT_THROW(busy.read(hold), StorageError);
    EXPECT_EQ(held, 16);
    EXPECT_NO_THROW(busy.read(query("SELECT 1")));
}

TEST_F(SharedDatabaseTest, TriesAgainAfterALostRace)
{
    PostgresDatabase database(address, Database::Mode::Serve);
    std::atomic<int> attempts = 0;
    std::atomic<int> holding = 0;
    const auto insert = [&](const std::string &first, const std::string &second) {
        database.write([&](Poco::Data::Session &session) {
            ++attempts;
            session << "UPDATE applications SET os = os || 'x' WHERE bundle_id = $1", useRef(first), now;
            // Each waits until the other holds its row too: a deadlock, of which one is the victim.
            for (++holding; holding < 2;)
                std::this_thread::yield();
            session << "UPDATE applications SET os = os || 'x' WHERE bundle_id = $1", useRef(second), now;
        });
    };
    database.write([](Poco::Data::Session &session) {
        session << "INSERT INTO applications (bundle_id, os, platform) VALUES ('a', '', ''), ('b', '', '')",
            now;
    });
    std::thread other([&] { insert("b", "a"); });
    insert("a", "b");
    other.join();
    EXPECT_GE(attempts, 3);
    std::vector<std::string> systems;
    database.read(
        [&](Poco::Data::Session &session) { session << "SELECT os FROM applications", into(systems), now; });
    EXPECT_EQ(systems, (std::vector<std::string>{"xx", "xx"}));
}

} // namespace

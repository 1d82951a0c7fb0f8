#include "Support/PostgresServer.h"
#include "Support/TestReceiver.h"

#include "Storage/SqliteDatabase.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

class OperationTest : public ReceiverTest
{
protected:
    /// All samples; every line must be a comment or a name with a number.
    static std::map<std::string, double> samples(const std::string &text)
    {
        const std::string prefix = "wexel_receiver_";
        std::map<std::string, double> values;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_THAT(line,
                        testing::MatchesRegex("# (HELP|TYPE) wexel_receiver_[a-z_]+ .+|wexel_receiver_[a-z_]+"
                                              "(\\{([a-z]+=\"[^\"\\]+\",?)+\\})? [0-9.]+"));
            const std::size_t blank = line.rfind(' ');
            const std::string name = line.substr(0, blank);
            if (!line.starts_with('#') && blank != line.npos)
                values[name.substr(std::min(prefix.size(), name.size()))] = std::atof(line.c_str() + blank);
        }
        return values;
    }
};

TEST_F(OperationTest, CountsWhatItDoes)
{
    start();
    Client client = receiver->client();
    client.upload("a", std::string(1000, 'x'));
    client.sendReport(R"({"description":"one"})");
    client.sendReport(R"({"description":"one"})");
    client.sendReport(R"({"description":"two"})");
    Client administrator = receiver->administrator();
    administrator.signIn("a wrong password");
    administrator.request("DELETE", "/dashboard/api/reports/1");
    administrator.request("GET", "/no\"where");
    const Reply reply = receiver->stranger().request("GET", "/metrics");
    EXPECT_EQ(reply.header.getContentType(), "text/plain; version=0.0.4; charset=utf-8");
    auto values = samples(reply.body);
    const auto requests = [&](const std::string &route, int status) {
        return values["requests_total{route=\"" + route + "\",status=\"" + std::to_string(status) + "\"}"];
    };
    EXPECT_EQ(requests("POST api/1.0/files", 200), 1);
    EXPECT_EQ(requests("POST api/1.0/issue_tracking/apps/{}", 200), 3);
    EXPECT_EQ(requests("POST dashboard/api/session", 401), 1);
    EXPECT_EQ(values["reports_stored_total"], 2);
    EXPECT_EQ(values["reports_repeated_total"], 1);
    EXPECT_EQ(values["reports_deleted_total"], 1);
    EXPECT_EQ(values["sign_in_failures_total"], 1);
    EXPECT_EQ(values["storage_failures_total"], 0);
    EXPECT_EQ(values["connections"], 3);
    EXPECT_GT(values["received_bytes_total"], 1000);
    EXPECT_EQ(values["request_duration_seconds_count"],
              values["request_duration_seconds_bucket{le=\"+Inf\"}"]);
    EXPECT_GE(values["request_duration_seconds_count"], 8);
    EXPECT_THAT(reply.body, testing::Not(HasSubstr(bundleId)));
}

TEST_F(OperationTest, TellsWhetherItCouldStore)
{
    start();
    Client client = receiver->stranger();
    const auto health = [&] { return client.request("GET", "/healthz"); };
    EXPECT_EQ(health().text("status"), "ok");
    {
        using namespace wexel::receiver;
        SqliteDatabase other(data / "receiver.sqlite", Database::Mode::Write);
        other.write([&](Poco::Data::Session &) {
            const auto asked = std::chrono::steady_clock::now();
            EXPECT_EQ(health().text("error"), "The database does not answer") << "another process keeps it";
            EXPECT_LT(std::chrono::steady_clock::now() - asked, std::chrono::seconds(5));
        });
    }
    Reply reply = health();
    for (int i = 0; i < 10 && reply.status != 200; ++i) // The one that waited is asked for first.
        reply = health();
    EXPECT_EQ(reply.status, 200);
    std::filesystem::remove(data / "incoming");
    reply = health();
    EXPECT_EQ(reply.status, 503);
    EXPECT_EQ(reply.text("error"), "The files can't be written");
}

TEST_F(OperationTest, TellsWhetherPostgreSqlCouldStore)
{
    PostgresServer &server = PostgresServer::instance();
    const std::string address = server.newDatabase();
    const std::string name = Poco::URI(address).getPath().substr(1);
    TestReceiver shared({"--database", address, "--files", data.string()}, {});
    Client client = shared.stranger();
    const auto health = [&] { return client.request("GET", "/healthz").status; };
    EXPECT_EQ(health(), 200);
    const auto setReadOnly = [&](const std::string &value) {
        server.run("ALTER DATABASE " + name + " SET default_transaction_read_only = " + value);
        server.run("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '" + name + '\'');
    };
    setReadOnly("on");
    EXPECT_EQ(health(), 503);
    setReadOnly("off");
    EXPECT_EQ(health(), 200);
    std::filesystem::remove(data / "incoming");
    EXPECT_EQ(health(), 503) << "no file can be received";
    EXPECT_EQ(shared.stop(), 0);
}

} // namespace

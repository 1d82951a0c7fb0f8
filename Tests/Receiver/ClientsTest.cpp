#include "Support/TestReceiver.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

const std::string clients = "/dashboard/api/clients";

std::string credentialsOf(const std::string &id, const std::string &secret)
{
    return "grant_type=client_credentials&client_id=" + id + "&client_secret=" + secret;
}

class ClientsTest : public ReceiverTest
{
protected:
    /// Adds a client from the dashboard and signs in with it.
    Client add(Client &administrator, const std::string &json)
    {
        const Reply added = administrator.post(clients, json);
        EXPECT_EQ(added.status, 201) << added.body;
        secret = added.text("secret");
        Client client = receiver->stranger();
        EXPECT_EQ(client.authenticate(credentialsOf(added.text("id"), secret)).status, 200);
        return client;
    }

    Result command(std::vector<std::string> words) const
    {
        words.insert(words.begin(), "client");
        words.insert(words.end(), {"--data", data.string()});
        return runReceiver(words);
    }

    std::string secret; ///< of the client added last
};

TEST_F(ClientsTest, AddsAndListsThem)
{
    start();
    Client administrator = receiver->administrator();
    Client client = add(administrator, R"({"id":"beta","bundle_ids":["org.example.b","org.example.a"]})");
    EXPECT_EQ(secret.size(), 64U);
    add(administrator, "{}");
    for (const char *taken : {R"({"id":"beta"})", R"({"id":"id"})"})
        EXPECT_EQ(administrator.post(clients, taken).status, 409) << taken;
    for (const char *wrong :
         {R"({"id":""})", R"({"id":"a:b"})", R"({"id":1})", R"({"bundle_ids":"a"})", R"({"bundle_ids":[1]})",
          R"({"bundle_ids":["../x"]})", R"({"bundle_ids":{}})", "[]", "", "{"})
        EXPECT_EQ(administrator.post(clients, wrong).status, 400) << wrong;
    EXPECT_EQ(receiver->client().post(clients, "{}").status, 401) << "a client's token is no session";

    const auto list = administrator.request("GET", clients).json()->getArray("clients");
    ASSERT_EQ(list->size(), 3U);
    EXPECT_EQ(list->getObject(0)->getValue<std::string>("id"), "id");
    EXPECT_TRUE(list->getObject(0)->getValue<bool>("from_command_line"));
    const auto beta = list->getObject(1);
    EXPECT_EQ(beta->getArray("bundle_ids")->getElement<std::string>(0), "org.example.a");
    EXPECT_FALSE(beta->getValue<bool>("revoked"));
    EXPECT_TRUE(beta->isNull("last_used")) << "signing in alone is no use";
    client.sendReport("{}", "org.example.a");
    const auto used = administrator.request("GET", clients).json()->getArray("clients")->getObject(1);
    EXPECT_GE(used->getValue<std::int64_t>("last_used"), used->getValue<std::int64_t>("created"));
    const std::string database = readFile(data / "receiver.sqlite") + readFile(data / "receiver.sqlite-wal");
    EXPECT_EQ(database.find(secret), std::string::npos);
}

TEST_F(ClientsTest, EndsTokensWhenRotatedOrRevoked)
{
    start();
    Client administrator = receiver->administrator();
    Client client = add(administrator, R"({"id":"beta"})");
    EXPECT_EQ(client.sendReport("{}").status, 200);
    const Reply rotated = administrator.post(clients + "/beta/rotate", "");
    EXPECT_EQ(client.sendReport("{}").status, 401);
    EXPECT_EQ(client.authenticate(credentialsOf("beta", secret)).status, 401);
    EXPECT_EQ(client.authenticate(credentialsOf("beta", rotated.text("secret"))).status, 200);
    EXPECT_EQ(client.sendReport("{}").status, 200);
    EXPECT_EQ(administrator.request("DELETE", clients + "/beta").status, 204);
    EXPECT_EQ(client.sendReport("{}").status, 401);
    EXPECT_EQ(client.authenticate(credentialsOf("beta", rotated.text("secret"))).status, 401);
    EXPECT_EQ(administrator.post(clients + "/beta/rotate", "").status, 404);
    EXPECT_EQ(administrator.post(clients, R"({"id":"beta"})").status, 409) << "nobody takes its name";
    EXPECT_EQ(administrator.request("DELETE", clients + "/id").status, 404);
    EXPECT_EQ(receiver->client().sendReport("{}").status, 200);
}

TEST_F(ClientsTest, BindsThemToApplications)
{
    start();
    Client administrator = receiver->administrator();
    Client client = add(administrator, R"({"bundle_ids":["org.example.app"]})");
    const auto registration = [&](const std::string &bundle, const std::string &more) {
        return client
            .post(applicationsPath,
                  R"({"bundle_id":")" + bundle + R"(","os":"a","platform":"b")" + more + "}")
            .status;
    };
    for (const std::string more : {"", R"(,"check_archived":true)"}) {
        EXPECT_EQ(registration("org.example.app", more), 200);
        EXPECT_EQ(registration("org.example.apps", more), 403);
    }
    EXPECT_EQ(client.upload("a", "b").status, 200);
    EXPECT_EQ(client.sendReport("{}").status, 200);
    EXPECT_EQ(client.sendReport("{}", "org.example.other").status, 403);
    EXPECT_EQ(receiver->reports()->size(), 1U);
}

TEST_F(ClientsTest, BindsThemAnew)
{
    start();
    Client administrator = receiver->administrator();
    Client client = add(administrator, R"({"id":"beta","bundle_ids":["org.example.app"]})");
    const auto bind = [&](const std::string &id, const std::string &json) {
        return administrator.request("PUT", clients + '/' + id, json, "application/json").status;
    };
    const auto send = [&](const std::string &bundle) {
        return client.sendReport(R"({"bundle":")" + bundle + "\"}", bundle).status;
    };
    for (const char *wrong : {"{}", R"({"bundle_ids":null})", R"({"bundle_ids":["../x"]})"})
        EXPECT_EQ(bind("beta", wrong), 400) << wrong;
    EXPECT_EQ(bind("gamma", R"({"bundle_ids":[]})"), 404);
    EXPECT_EQ(send("org.example.app"), 200);
    EXPECT_EQ(bind("beta", R"({"bundle_ids":["org.example.next"]})"), 204);
    EXPECT_EQ(send("org.example.next"), 200);
    EXPECT_EQ(send("org.example.app"), 403);
    EXPECT_EQ(command({"bind", "beta", "--bundle", "org.example.app", "--bundle", "b"}).output,
              "beta may report for org.example.app, b\n");
    EXPECT_EQ(send("org.example.next"), 403);
    EXPECT_EQ(command({"bind", "beta", "--any-bundle"}).output, "beta may report for any bundle id\n");
    EXPECT_EQ(send("org.example.any"), 200);
    EXPECT_EQ(command({"revoke", "beta"}).output, "beta is revoked\n");
    EXPECT_EQ(bind("beta", R"({"bundle_ids":[]})"), 404) << "it stays revoked";
    EXPECT_EQ(command({"bind", "beta", "--any-bundle"}).code, 1);
}

TEST_F(ClientsTest, ManagesThemFromTheCommandLineBesideAServer)
{
    start();
    const Result added = command({"add", "beta", "--bundle", "org.example.app"});
    const std::string label = "Client id: beta\nClient secret: ";
    ASSERT_THAT(added.output, testing::StartsWith(label));
    const std::string first = added.output.substr(label.size(), 64);
    Client client = receiver->stranger();
    EXPECT_EQ(client.authenticate(credentialsOf("beta", first)).status, 200);
    EXPECT_EQ(client.sendReport("{}").status, 200);
    EXPECT_EQ(client.sendReport("{}", "org.example.other").status, 403);
    EXPECT_EQ(command({"add", "beta"}).code, 1);
    EXPECT_THAT(command({"list"}).output,
                testing::ContainsRegex("beta +[0-9TZ:-]+ +[0-9TZ:-]+ +good +org.example.app\n"));
    EXPECT_THAT(command({"rotate", "beta"}).output, testing::StartsWith(label));
    EXPECT_EQ(client.sendReport("{}").status, 401);
    EXPECT_EQ(command({"revoke", "beta"}).code, 0);
    EXPECT_THAT(command({"list"}).output, HasSubstr("revoked"));
    EXPECT_EQ(command({"rotate", "beta"}).code, 1);
    EXPECT_EQ(command({"revoke", "gamma"}).code, 1);
    for (const std::vector<std::string> &wrong : std::vector<std::vector<std::string>>{
             {}, {"rotate"}, {"bind", "beta"}, {"list", "x"}, {"add", "a:b"}, {"dance", "x"}})
        EXPECT_EQ(command(wrong).code, 2);
}

TEST_F(ClientsTest, NeverPassesATokenToAnotherKindOfClient)
{
    start();
    Client administrator = receiver->administrator();
    Client bound = add(administrator, R"({"id":"beta","bundle_ids":["org.example.app"]})");
    EXPECT_EQ(receiver->stop(), 0);
    start({"--client", "beta:of the command line"});
    Client later = receiver->stranger();
    later.token = bound.token;
    EXPECT_EQ(later.sendReport("{}", "org.example.other").status, 403);
}

} // namespace

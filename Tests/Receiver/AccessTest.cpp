#include "Support/TestReceiver.h"

#include "Access/LoginThrottle.h"
#include "Http/TrustedProxies.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::Not;

const std::string session = "/dashboard/api/session";

class AccessTest : public ReceiverTest
{
protected:
    Reply signInWithHeader(const std::string &name, const std::string &value) const
    {
        Client client = receiver->stranger();
        client.headers[name] = value;
        return client.signIn(receiver->password());
    }
};

TEST_F(AccessTest, TellsAGeneratedPasswordOnce)
{
    start();
    const std::string password = receiver->password();
    EXPECT_GE(password.size(), 20U);
    EXPECT_EQ(receiver->stop(), 0);
    start();
    EXPECT_EQ(receiver->password(), "");
    EXPECT_EQ(receiver->stranger().signIn(password).status, 200);
}

TEST_F(AccessTest, TakesTheFirstPasswordFromAFileAndTheNextFromTheCommand)
{
    const auto file = folder.path() / "password";
    const std::vector<std::string> options = {"--admin-password-file", file.string()};
    const auto refusal = [&] {
        return runReceiver({"--data", data.string(), options[0], options[1], "--listen", "127.0.0.1:0"});
    };
    EXPECT_EQ(refusal().code, 2);
    writeFile(file, "too short\n");
    EXPECT_THAT(refusal().output, HasSubstr("at least 10"));
    writeFile(file, "of a given length\r\n");
    start(options);
    EXPECT_EQ(receiver->password(), "");
    Client client = receiver->stranger();
    EXPECT_EQ(client.signIn("of a given length").status, 200);

    const std::string command = std::string(WEXEL_RECEIVER) + " password --data " + data.string();
    const auto run = [](const std::string &line) { return Program({"sh", "-c", line}).readAll(); };
    EXPECT_THAT(run("echo another password | " + command), HasSubstr("has another password"));
    EXPECT_EQ(client.request("GET", session).status, 401);
    EXPECT_EQ(client.signIn("of a given length").status, 401);
    EXPECT_EQ(client.signIn("another password").status, 200);
    const std::string told = run(command + " </dev/null");
    const std::string label = "Dashboard password: ";
    ASSERT_THAT(told, HasSubstr(label));
    EXPECT_EQ(client.signIn(told.substr(label.size(), told.size() - label.size() - 1)).status, 200);
}

TEST_F(AccessTest, KeepsASessionInACookieThatNoScriptReads)
{
    start();
    Client client = receiver->stranger();
    EXPECT_EQ(client.request("GET", session).status, 401);
    const Reply signedIn = client.signIn(receiver->password());
    EXPECT_THAT(signedIn.header.get("Set-Cookie"),
                testing::MatchesRegex("wexel_session=[0-9a-f]{64}; Path=/; HttpOnly; SameSite=Strict; "
                                      "Max-Age=604800"));
    const Reply again = client.request("GET", session);
    EXPECT_EQ(again.text("csrf"), signedIn.text("csrf"));
    EXPECT_EQ(again.text("version").substr(0, 2), "1.");
    const std::string database = readFile(data / "receiver.sqlite") + readFile(data / "receiver.sqlite-wal");
    const std::string token = client.headers.at("Cookie").substr(std::string("wexel_session=").size());
    for (const std::string &secret : {receiver->password(), token, signedIn.text("csrf")})
        EXPECT_EQ(database.find(secret), std::string::npos) << secret;
    EXPECT_EQ(client.request("DELETE", session).status, 204);
    EXPECT_EQ(client.request("GET", session).status, 401);
}

TEST_F(AccessTest, BindsTheCookieToTheHostUnderTls)
{
    start({"--public-url", "HTTPS://reports.example.org/wexel"});
    EXPECT_THAT(signInWithHeader("Origin", "https://reports.example.org").header.get("Set-Cookie"),
                testing::AllOf(testing::StartsWith("__Host-wexel_session="), HasSubstr("; Secure")));
    EXPECT_EQ(signInWithHeader("Origin", "https://reports.example.org.evil.example").status, 403);
}

TEST_F(AccessTest, RefusesForgedRequests)
{
    start();
    Client client = receiver->administrator();
    const auto genuine = client.headers;
    const std::string own = receiver->url().getScheme() + "://" + receiver->url().getAuthority();
    const auto status = [&](const std::string &name, const std::string &value) {
        client.headers = genuine;
        client.headers[name] = value;
        return client.request("DELETE", session).status;
    };
    const std::string &csrf = genuine.at("X-CSRF-Token");
    for (const std::string &wrong : {std::string(), std::string(64, '0'), csrf + "0", csrf.substr(1)})
        EXPECT_EQ(status("X-CSRF-Token", wrong), 403) << wrong;
    const std::string port = std::to_string(receiver->url().getPort());
    for (const std::string name : {"localhost", "127.0.0.1", "evil.example"}) { // one that leads here by now
        Client rebound = receiver->stranger();
        rebound.headers = {{"Host", name + ':' + port}, {"Origin", "http://" + name + ':' + port}};
        EXPECT_EQ(rebound.signIn(receiver->password()).status, name == "evil.example" ? 403 : 200) << name;
    }
    for (const std::string origin : {"http://evil.example", "null", "", "http://127.0.0.1"}) {
        const Reply reply = signInWithHeader("Origin", origin);
        EXPECT_EQ(reply.status, origin.empty() ? 200 : 403) << origin;
    }
    EXPECT_EQ(status("Origin", "http://evil.example"), 403);
    EXPECT_EQ(status("Origin", own), 204);
    // A form of another page can't declare JSON.
    EXPECT_EQ(receiver->stranger().request("POST", session, "{}", "text/plain").status, 415);
}

TEST_F(AccessTest, EndsAllSessionsWhenThePasswordChanges)
{
    start();
    Client client = receiver->administrator();
    Client other = receiver->administrator();
    const auto former = client.headers;
    const auto change = [&](const std::string &current, const std::string &next) {
        const std::string json = R"({"current":")" + current + R"(","new":")" + next + "\"}";
        return client.keepSession(client.post("/dashboard/api/password", json)).status;
    };
    EXPECT_EQ(change("a wrong one", "long enough"), 403);
    EXPECT_EQ(change(receiver->password(), "too short"), 400);
    EXPECT_EQ(change(receiver->password(), "long enough"), 200);
    EXPECT_EQ(client.request("GET", session).text("csrf"), client.headers.at("X-CSRF-Token"));
    client.headers = former;
    EXPECT_EQ(client.request("GET", session).status, 401) << "whoever has stolen that cookie is out";
    EXPECT_EQ(other.request("GET", session).status, 401);
    EXPECT_EQ(other.signIn(receiver->password()).status, 401);
    EXPECT_EQ(other.signIn("long enough").status, 200);
}

TEST_F(AccessTest, ThrottlesWhoGuesses)
{
    start();
    Client client = receiver->stranger();
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(client.signIn("a wrong password").status, 401);
    const Reply refused = client.signIn(receiver->password());
    EXPECT_EQ(refused.status, 429);
    const int wait = std::stoi(refused.header.get("Retry-After", "0"));
    EXPECT_TRUE(wait >= 1 && wait <= 60) << wait;
}

TEST_F(AccessTest, ThrottlesWhoGuessesBehindAProxyAlone)
{
    start({"--trusted-proxy", "127.0.0.1"});
    const auto statusOf = [&](const char *sender, const std::string &password) {
        Client client = receiver->stranger();
        client.headers["X-Forwarded-For"] = sender;
        return client.signIn(password).status;
    };
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(statusOf("6.6.6.6", "a wrong password"), 401);
    EXPECT_EQ(statusOf("6.6.6.6", receiver->password()), 429);
    EXPECT_EQ(statusOf("1.2.3.4", receiver->password()), 200);
}

TEST_F(AccessTest, GuardsEveryAnswerOfTheDashboard)
{
    start();
    Client client = receiver->administrator();
    for (const char *path : {"/", "/dashboard", "/dashboard/", "/dashboard/assets/chart.js",
                             "/dashboard/api/session", "/dashboard/api/nothing", "/dashboard/nothing"}) {
        const Reply reply = client.request("GET", path);
        EXPECT_THAT(reply.header.get("Content-Security-Policy", ""),
                    testing::AllOf(HasSubstr("default-src 'none'"), Not(HasSubstr("unsafe"))))
            << path;
        EXPECT_EQ(reply.header.get("X-Content-Type-Options", ""), "nosniff") << path;
        EXPECT_EQ(reply.header.get("X-Frame-Options", ""), "DENY") << path;
        EXPECT_EQ(reply.header.get("Referrer-Policy", ""), "no-referrer") << path;
        EXPECT_EQ(reply.header.get("Cross-Origin-Opener-Policy", ""), "same-origin") << path;
        EXPECT_FALSE(reply.header.has("Strict-Transport-Security")) << path;
    }
    // Answered in full, though a client's POST to a wrong address is broken off.
    EXPECT_EQ(client.post("/dashboard/api/nothing", "{}").status, 404);
    EXPECT_EQ(client.post("/dashboard/api/session/more", "{}").status, 404);
}

TEST(LoginThrottleTest, CountsByPeerAndByAllAndForgets)
{
    using namespace wexel::receiver;
    using Clock = LoginThrottle::Clock;
    LoginThrottle throttle;
    Clock::time_point now;
    const auto fails
        = [&](const std::string &peer) { return !LoginThrottle::Attempt(throttle, peer, now).refusal(); };
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(fails("a"));
    EXPECT_FALSE(fails("a"));
    EXPECT_EQ(LoginThrottle::Attempt(throttle, "a", now + std::chrono::seconds(20)).refusal(),
              std::chrono::seconds(40));
    for (int i = 0; i < 20; ++i) {
        LoginThrottle::Attempt right(throttle, "b", now);
        ASSERT_FALSE(right.refusal());
        right.succeed();
    }
    for (int i = 5; i < 60; ++i)
        EXPECT_TRUE(fails(std::to_string(i)));
    EXPECT_FALSE(fails("c"));
    EXPECT_FALSE(LoginThrottle::Attempt(throttle, "b", now).refusal()) << "it has succeeded before";
    now += std::chrono::minutes(1);
    EXPECT_TRUE(fails("a"));
    {
        const LoginThrottle::Attempt first(throttle, "x", now);
        const LoginThrottle::Attempt second(throttle, "y", now);
        EXPECT_FALSE(fails("z")) << "a third hash at once";
    }
    EXPECT_TRUE(fails("z"));
    EXPECT_EQ(throttledPeer("10.1.2.3:4567"), "10.1.2.3");
    EXPECT_EQ(throttledPeer("[2001:db8:1:2:3:4:5:6]:7"), throttledPeer("[2001:db8:1:2:ffff::1]:8"));
    EXPECT_NE(throttledPeer("[2001:db8:1:2::1]:7"), throttledPeer("[2001:db8:1:3::1]:7"));
    EXPECT_EQ(throttledPeer("[::ffff:10.1.2.3]:7"), "10.1.2.3");
    EXPECT_EQ(throttledPeer("[fe80::1%lo]:7"), throttledPeer("fe80::2"));
}

TEST(TrustedProxiesTest, TakeTheLastAddressThatIsNoProxys)
{
    using namespace wexel::receiver;
    TrustedProxies proxies;
    for (const char *wrong :
         {"", "proxy.example.org", "10.0.0.0/33", "10.0.0.0/", "10.0.0.0/x", "10.0.0.1:80"})
        EXPECT_FALSE(proxies.add(wrong)) << wrong;
    const auto sender = [&](const std::string &peer, const std::vector<std::string> &forwarded) {
        Poco::Net::HTTPRequest request;
        for (const std::string &value : forwarded)
            request.add("X-Forwarded-For", value);
        return proxies.senderOf(peer, request);
    };
    EXPECT_EQ(sender("10.0.0.1:80", {"1.2.3.4"}), "10.0.0.1:80");
    EXPECT_TRUE(proxies.add("10.0.0.0/8") && proxies.add("::1"));
    EXPECT_EQ(sender("11.0.0.1:80", {"1.2.3.4"}), "11.0.0.1:80") << "anybody may write the header";
    for (const char *peer : {"10.0.0.1:80", "[::1]:80", "[::ffff:10.0.0.1]:80"}) {
        EXPECT_EQ(sender(peer, {"6.6.6.6, 1.2.3.4,10.9.9.9"}), "1.2.3.4") << peer;
        EXPECT_EQ(sender(peer, {"6.6.6.6", "[2001:db8::1]:99"}), "2001:db8::1") << peer;
        EXPECT_EQ(sender(peer, {"10.2.2.2, 10.9.9.9"}), "10.2.2.2") << "all are in the proxies' network";
        EXPECT_EQ(sender(peer, {"1.2.3.4, nonsense, 10.9.9.9"}), "10.9.9.9");
        for (const char *none : {"", "1.2.3.4, nonsense", "1.2.3.4,", "a:b", "["})
            EXPECT_EQ(sender(peer, {none}), peer) << none;
    }
}

} // namespace

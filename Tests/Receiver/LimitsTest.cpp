#include "Support/TestReceiver.h"

#include <Poco/Net/NetException.h>

#include <atomic>
#include <thread>

namespace {

class LimitsTest : public ReceiverTest
{
};

TEST_F(LimitsTest, RefusesWhatIsTooBig)
{
    start({"--max-file-size", "1000", "--max-report-size", "100"});
    Client client = receiver->client();
    EXPECT_EQ(client.upload("a", std::string(1000, 'a')).status, 200);
    const Reply file = client.upload("a", std::string(1001, 'a'));
    EXPECT_EQ(file.status, 413);
    EXPECT_NE(file.text("error").find("1000"), std::string::npos);
    const Reply upload = client.upload("a", std::string(3000000, 'a'));
    EXPECT_EQ(upload.status, 413);
    EXPECT_EQ(upload.text("error"), "The upload is larger than the limit of 1000 bytes");
    EXPECT_EQ(client.sendReport(R"({"a":")" + std::string(92, 'a') + "\"}").status, 200);
    const Reply report = client.sendReport(R"({"a":")" + std::string(93, 'a') + "\"}");
    EXPECT_EQ(report.status, 413);
    EXPECT_NE(report.text("error").find("100 bytes"), std::string::npos);

    auto chunked = receiver->connect();
    send(chunked,
         "POST /auth/oauth2/token HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nfffff\r\n"
             + std::string(0xfffff, 'x') + "\r\n0\r\n\r\n");
    EXPECT_TRUE(readUntilClosed(chunked).value_or("open").starts_with("HTTP/1.1 413"));
    EXPECT_TRUE(std::filesystem::is_empty(data / "incoming"));
}

/// Sends a byte whenever the receiver has been silent for a while; true if it ends the connection all the same.
bool isCutOff(Poco::Net::StreamSocket socket, const std::string &opening, std::string &answer)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    try {
        send(socket, opening);
        while (std::chrono::steady_clock::now() < deadline) {
            if (!socket.poll(Poco::Timespan(0, 100000), Poco::Net::Socket::SELECT_READ)) {
                send(socket, "x");
                continue;
            }
            char block[4096];
            const int count = socket.receiveBytes(block, sizeof block);
            if (count <= 0)
                return true;
            answer.append(block, static_cast<std::size_t>(count));
        }
    } catch (const Poco::Exception &) { // reset by the receiver
        return true;
    }
    return false;
}

TEST_F(LimitsTest, CutsOffSlowRequests)
{
    start({"--request-timeout", "1"});
    std::string inHeader;
    std::string inBody;
    EXPECT_TRUE(isCutOff(receiver->connect(), "POST /auth/oauth2/token HTTP/1.1\r\nA: ", inHeader));
    EXPECT_TRUE(isCutOff(receiver->connect(),
                         "POST /auth/oauth2/token HTTP/1.1\r\nContent-Length: 9999\r\n\r\n", inBody));
    EXPECT_TRUE(inHeader.starts_with("HTTP/1.1 408")) << inHeader;
    EXPECT_TRUE(inBody.starts_with("HTTP/1.1 408")) << inBody;
    EXPECT_EQ(receiver->client().sendReport("{}").status, 200);
}

/// The status that a new client gets once it gets one other than \a unwanted; 0 if it does not in time.
int statusOfNewClient(const TestReceiver &receiver, int unwanted, std::chrono::seconds patience)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (std::chrono::steady_clock::now() < deadline) {
        try {
            const int status = receiver.stranger().authenticate().status;
            if (status != unwanted)
                return status;
        } catch (const Poco::Exception &) { // Not even that many are told that they are too many.
        }
    }
    return 0;
}

TEST_F(LimitsTest, ServesNoMoreConnectionsThanAllowed)
{
    start({"--max-connections", "2"});
    Client first = receiver->client();
    std::optional<Client> second = receiver->client();
    const Reply refused = receiver->stranger().authenticate();
    EXPECT_EQ(refused.status, 503);
    EXPECT_EQ(first.sendReport("{}").status, 200);

    second.reset();
    EXPECT_EQ(statusOfNewClient(*receiver, 503, std::chrono::seconds(30)), 200);
}

TEST_F(LimitsTest, SilentConnectionsLockNobodyOut)
{
    start({"--max-connections", "2"});
    // Two that are served, some that are told that they are too many, and more than can be told at once.
    std::vector<Poco::Net::StreamSocket> silent;
    silent.reserve(50);
    for (int i = 0; i < 50; ++i)
        silent.push_back(receiver->connect());
    EXPECT_TRUE(readUntilClosed(silent[10]).value_or("open").starts_with("HTTP/1.1 503"));
    EXPECT_EQ(statusOfNewClient(*receiver, 200, std::chrono::seconds(8)), 503);
    EXPECT_EQ(statusOfNewClient(*receiver, 503, std::chrono::seconds(30)), 200);
}

TEST_F(LimitsTest, BoundsTheReportsInMemory)
{
    constexpr std::size_t block = 64 * 1024; // in which a body is read
    start({"--max-report-size", std::to_string(2 * block)});
    Client client = receiver->client();
    const std::string head = "POST /api/1.0/issue_tracking/apps/a HTTP/1.1\r\nAuthorization: Bearer "
        + client.token + "\r\nContent-Length: " + std::to_string(2 * block) + "\r\n\r\n";
    std::vector<Poco::Net::StreamSocket> senders;
    for (int i = 0; i < 17; ++i) { // One more than there is room for.
        senders.push_back(receiver->connect());
        send(senders.back(), head);
    }
    EXPECT_EQ(client.sendReport("{}").status, 200) << "nothing has arrived of what was announced";
    for (auto &sender : senders)
        send(sender, "{" + std::string(block - 1, ' '));
    Poco::Net::Socket::SocketList answered(senders.begin(), senders.end());
    Poco::Net::Socket::SocketList none;
    ASSERT_EQ(Poco::Net::Socket::select(answered, none, none, Poco::Timespan(30, 0)), 1);
    const Reply refused = client.sendReport("{}");
    EXPECT_EQ(refused.status, 503);
    EXPECT_EQ(refused.header.get("Retry-After", ""), "5");
    senders.clear();
    for (int i = 0; i < 1000 && client.sendReport("{}").status != 200; ++i) {
    } // until it has seen them leave
    EXPECT_EQ(client.sendReport("{}").status, 200);
}

TEST_F(LimitsTest, ServesManyClientsAtOnce)
{
    start();
    std::atomic<int> sent = 0;
    std::vector<std::thread> threads;
    threads.reserve(16);
    for (int i = 0; i < 16; ++i) {
        threads.emplace_back([&, i] {
            Client client = receiver->client();
            for (int k = 0; k < 5; ++k) {
                const std::string url
                    = client.upload("a", std::string(100000, static_cast<char>('a' + (i + k) % 20)))
                          .text("url");
                const std::string json = "{\"title\":\"" + std::to_string(i) + '/' + std::to_string(k)
                    + "\",\"screenshot_url\":\"" + url + "\"}";
                sent += client.sendReport(json).status == 200 ? 1 : 0;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(sent, 80);
    const auto reports = receiver->reports();
    ASSERT_EQ(reports->size(), 80U);
    for (unsigned i = 0; i < reports->size(); ++i)
        EXPECT_EQ(reports->getObject(i)->getObject("screenshot")->getValue<int>("size"), 100000);
}

} // namespace

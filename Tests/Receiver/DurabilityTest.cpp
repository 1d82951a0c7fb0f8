#include "Secrets.h"
#include "Server.h"
#include "Support/TestReceiver.h"

#include <array>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <sys/mount.h>
#include <thread>

namespace {

class DurabilityTest : public ReceiverTest
{
protected:
    /// Sends reports with a file each until the receiver is gone. Keeps what was answered.
    void sendUntilKilled(int sender)
    {
        try {
            Client client = receiver->client();
            for (int i = 0;; ++i) {
                const std::string bytes
                    = std::to_string(sender) + "/" + std::to_string(i) + std::string(50000, 'x');
                const std::string url = client.upload("a", bytes).text("url");
                const Reply reply = client.sendReport("{\"screenshot_url\":\"" + url + "\"}");
                const int id = reply.json()->getValue<int>("id");
                const std::lock_guard lock(mutex);
                answered[id] = bytes;
                changed.notify_one();
            }
        } catch (const Poco::Exception &) { // The receiver was killed.
        }
    }

    bool waitForAnswers(std::size_t count)
    {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, std::chrono::seconds(30), [&] { return answered.size() >= count; });
    }

    std::mutex mutex;
    std::condition_variable changed;
    std::map<int, std::string> answered; ///< the screenshot's bytes by the report's id; guarded by mutex
};

TEST_F(DurabilityTest, KeepsEveryAnsweredReportWhenKilled)
{
    for (int round = 1; round <= 3; ++round) {
        start();
        std::array<std::thread, 4> senders;
        for (int i = 0; i < 4; ++i)
            senders.at(i) = std::thread([this, sender = round * 10 + i] { sendUntilKilled(sender); });
        EXPECT_TRUE(waitForAnswers(static_cast<std::size_t>(round) * 25));
        receiver->kill();
        for (std::thread &sender : senders)
            sender.join();
        receiver.reset();
    }
    start();
    const auto reports = receiver->reports();
    for (unsigned i = 0; i < reports->size(); ++i) {
        const auto report = reports->getObject(i);
        const auto screenshot = report->getObject("screenshot");
        ASSERT_TRUE(screenshot) << "half a report";
        const std::string bytes = readFile(screenshot->getValue<std::string>("path"));
        EXPECT_EQ(wexel::receiver::sha256(bytes), screenshot->getValue<std::string>("sha256"));
        const auto expected = answered.find(report->getValue<int>("id"));
        if (expected == answered.end())
            continue; // stored, but killed before the answer
        EXPECT_EQ(bytes, expected->second);
        answered.erase(expected);
    }
    EXPECT_TRUE(answered.empty()) << answered.size() << " answered reports are lost";
}

TEST_F(DurabilityTest, TokensOutliveARestart)
{
    start();
    const std::string token = receiver->client().token;
    receiver->kill();
    start();
    Client client = receiver->stranger();
    client.token = token;
    EXPECT_EQ(client.sendReport("{}").status, 200);
}

/// A disk of 3 MiB at a folder, where the user may mount one.
class SmallDisk
{
public:
    explicit SmallDisk(std::filesystem::path folder) : m_folder(std::move(folder))
    {
        std::filesystem::create_directory(m_folder);
        m_isMounted = ::mount("tmpfs", m_folder.c_str(), "tmpfs", 0, "size=3m") == 0;
    }
    ~SmallDisk()
    {
        if (m_isMounted)
            ::umount2(m_folder.c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return m_isMounted; }

private:
    std::filesystem::path m_folder;
    bool m_isMounted;
};

TEST_F(DurabilityTest, AFullDiskLosesNothing)
{
    const SmallDisk disk(data);
    // Elsewhere no file may grow beyond 1 MiB (2048 blocks), which is what a full disk looks like to a large upload.
    const std::vector<std::string> limited = {"/bin/sh", "-c", "ulimit -f 2048; exec \"$0\" \"$@\""};
    start({}, disk.isMounted() ? std::vector<std::string>() : limited);
    Client client = receiver->client();
    const std::string kept(100000, 'k');
    const std::string url = client.upload("kept", kept).text("url");
    const Reply full = client.upload("a", std::string(4000000, 'a'));
    EXPECT_EQ(full.status, 507);
    EXPECT_NE(full.text("error"), "");
    const int report = client.sendReport(R"({"a":")" + std::string(4000000, 'a') + "\"}").status;
    EXPECT_TRUE(report == 503 || report == 507) << report;
    EXPECT_EQ(receiver->client().request("GET", Poco::URI(url).getPath()).body, kept);
    EXPECT_EQ(receiver->client().sendReport("{}").status, 200);
    EXPECT_TRUE(std::filesystem::is_empty(data / "incoming"));
    EXPECT_EQ(receiver->stop(), 0);
    receiver.reset();
}

/// True once the receiver refuses to be connected to; false if it still does not after some seconds.
bool closesItsPort(const TestReceiver &receiver)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    try {
        while (std::chrono::steady_clock::now() < deadline)
            receiver.connect();
        return false;
    } catch (const Poco::Exception &) {
        return true;
    }
}

TEST_F(DurabilityTest, LetsRequestsInFlightEnd)
{
    start();
    Client idle = receiver->client();
    auto socket = receiver->connect();
    send(socket, "POST /auth/oauth2/token HTTP/1.1\r\nContent-Length: 67\r\nExpect: 100-continue\r\n\r\n");
    char answer[25];
    ASSERT_EQ(socket.receiveBytes(answer, sizeof answer), 25); // It reads the body now.
    std::thread stopper([&] { EXPECT_EQ(receiver->stop(), 0); });
    // The port closes first; then the rest of the body arrives.
    EXPECT_TRUE(closesItsPort(*receiver));
    send(socket, credentials + "&x");
    EXPECT_TRUE(readUntilClosed(socket).value_or("open").starts_with("HTTP/1.1 200"));
    stopper.join();
    receiver.reset();
}

TEST_F(DurabilityTest, TellsWhatItDoesNotWaitForThatItStops)
{
    using namespace wexel::receiver;
    Options options;
    options.place.data = data;
    options.listenPort = 0;
    DataFolder storage(options.place, DataFolder::Access::Serve);
    Server server(options, storage, Port(options));
    const Poco::URI url(server.url());
    Poco::Net::StreamSocket socket(Poco::Net::SocketAddress(url.getHost(), url.getPort()));
    send(socket, "POST /auth/oauth2/token HTTP/1.1\r\nContent-Length: 67\r\nExpect: 100-continue\r\n\r\n");
    char answer[25];
    ASSERT_EQ(socket.receiveBytes(answer, sizeof answer), 25); // It reads the body now.
    server.stop(std::chrono::seconds(0));
    const std::string end = readUntilClosed(socket).value_or("open");
    EXPECT_TRUE(end.starts_with("HTTP/1.1 503")) << end;
    EXPECT_NE(end.find("The receiver stops"), std::string::npos) << end;
}

} // namespace

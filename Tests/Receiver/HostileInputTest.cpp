#include "Support/TestReceiver.h"

namespace {

class HostileInputTest : public ReceiverTest
{
protected:
    std::size_t filesOnDisk() const { return filesIn(folder.path()); }

    static std::size_t filesIn(const std::filesystem::path &top)
    {
        const auto entries = std::filesystem::recursive_directory_iterator(top);
        return static_cast<std::size_t>(std::count_if(
            begin(entries), end(entries), [](const auto &entry) { return entry.is_regular_file(); }));
    }
};

TEST_F(HostileInputTest, RefusesMalformedBodies)
{
    start();
    Client client = receiver->client();
    for (const std::string body :
         {"", "{", "null", "[]", "1", "\"text\"", "{\"a\":1}x", "{\"a\":\"\xff\"}", "{'a':1}"})
        EXPECT_EQ(client.sendReport(body).status, 400) << body;
    EXPECT_EQ(client.sendReport(std::string(100000, '[')).status, 400);
    EXPECT_EQ(client.sendReport(R"({"screenshot_url":5,"files":{"url":[null,{"url":1}]}})").status, 200);

    for (const char *body :
         {"", "[]", R"({"os":"a","platform":"b"})", R"({"bundle_id":1,"os":"a","platform":"b"})",
          R"({"bundle_id":"a","os":"a","platform":"b","check_archived":"yes"})"})
        EXPECT_EQ(client.post("/api/1.0/issue_tracking/apps", body).status, 400) << body;

    const std::string files = "/api/1.0/files";
    EXPECT_EQ(client.request("POST", files, "x", "multipart/form-data").status, 400);
    EXPECT_EQ(client.request("POST", files, "x", "application/json").status, 400);
    EXPECT_EQ(
        client.request("POST", files, "x", "multipart/form-data; boundary=" + std::string(71, 'b')).status,
        400);
    const std::string part = "--b\r\nContent-Disposition: form-data; name=\"file\"; filename=\"x\"\r\n\r\n";
    const std::string other = "--b\r\nContent-Disposition: form-data; name=\"other\"\r\n\r\ntext\r\n";
    const std::string twice = (part + "1\r\n").append(part).append("2\r\n--b--");
    for (const std::string &body :
         {std::string(), std::string("--b--"), std::string("--b\r\n\r\nno header\r\n--b--"), part + "cut",
          part + "cut\r\n--b", other + "--b--", twice, "--b\r\n" + std::string(100000, 'x')})
        EXPECT_EQ(client.request("POST", files, body, "multipart/form-data; boundary=b").status, 400)
            << body.substr(0, 99);
    EXPECT_EQ(
        client.request("POST", files, other + part + "1\r\n--b--", "multipart/form-data; boundary=\"b\"")
            .status,
        200);
    EXPECT_TRUE(std::filesystem::is_empty(data / "incoming"));
    EXPECT_EQ(filesIn(data / "files"), 2U) << "beside the list of inboxes, bytes of refused uploads are kept";
}

TEST_F(HostileInputTest, KeepsNamesOffTheDisk)
{
    start();
    Client client = receiver->client();
    const std::size_t before = filesOnDisk();
    for (const std::string bundle :
         {"..%2f..%2fescape", "%2e%2e", "a%00b", "a%0ab", "%22%27%3b--", "%ff", "a%5cb"})
        EXPECT_EQ(client.sendReport("{}", bundle).status, 400) << bundle;
    EXPECT_EQ(client.sendReport("{}", std::string(256, 'a')).status, 400);
    EXPECT_EQ(client.sendReport("{}", "org.example.Caf%C3%A9%20App").status, 200);
    EXPECT_EQ(filesOnDisk(), before);

    const std::vector<std::pair<std::string, std::string>> names = {
        {"../../escape", "../../escape"}, {"/etc/passwd", "/etc/passwd"},      {"a\"b\".png", "a\"b\".png"},
        {"line\r\nbreak", "line__break"}, {std::string("nul\0l", 5), "nul_l"}, {"bad\xff", "bad_"}};
    std::string files;
    for (const auto &name : names)
        files += (files.empty() ? "" : ",")
            + ("{\"url\":\"" + client.upload(name.first, "same bytes").text("url") + "\"}");
    EXPECT_EQ(client.upload(std::string(1025, 'n'), "x").status, 400);
    EXPECT_EQ(client.sendReport("{\"files\":[" + files + "]}").status, 200);
    EXPECT_EQ(filesOnDisk(), before + names.size());
    const auto stored = receiver->reports()->getObject(1)->getArray("files");
    ASSERT_EQ(stored->size(), names.size());
    for (unsigned i = 0; i < names.size(); ++i)
        EXPECT_EQ(stored->getObject(i)->getValue<std::string>("name"), names[i].second);
}

TEST_F(HostileInputTest, RefusesAmbiguousOrBrokenFraming)
{
    start();
    const auto statusOf = [&](const std::string &request) {
        auto socket = receiver->connect();
        send(socket, request);
        return readUntilClosed(socket).value_or("open").substr(0, 12);
    };
    const std::string post = "POST /auth/oauth2/token HTTP/1.1\r\n";
    EXPECT_EQ(statusOf(post + "\r\n"), "HTTP/1.1 411");
    EXPECT_EQ(statusOf(post + "Content-Length: -5\r\n\r\n"), "HTTP/1.1 400");
    EXPECT_EQ(statusOf(post + "Content-Length: 5\r\nContent-Length: 6\r\n\r\nabcdef"), "HTTP/1.1 400");
    EXPECT_EQ(statusOf(post + "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n"),
              "HTTP/1.1 400");
    for (const std::string name : {"Content-Length ", "Transfer-Encoding\t", "A B"})
        EXPECT_EQ(statusOf("GET /healthz HTTP/1.1\r\n" + name + ": 40\r\n\r\nGET /metrics HTTP/1.1\r\n"),
                  "HTTP/1.1 400")
            << name << ": to another reader a body follows";
    EXPECT_EQ(statusOf("GET http://example.org:80/healthz HTTP/1.1\r\nConnection: close\r\n\r\n"),
              "HTTP/1.1 200");
    EXPECT_EQ(statusOf(post + "Transfer-Encoding: gzip\r\n\r\n"), "HTTP/1.1 501");
    EXPECT_EQ(statusOf(std::string(5000, 'x') + "\r\n\r\n"), "HTTP/1.1 400");
    EXPECT_EQ(statusOf(post + "A: " + std::string(100000, 'x')), "HTTP/1.1 400");
}

TEST_F(HostileInputTest, UnderstandsChunksAndExpectations)
{
    start();
    auto socket = receiver->connect();
    send(socket,
         "POST /auth/oauth2/token HTTP/1.1\r\nTransfer-Encoding: chunked\r\nExpect: 100-continue\r\n\r\n");
    char answer[26] = {};
    EXPECT_EQ(socket.receiveBytes(answer, 25), 25);
    EXPECT_STREQ(answer, "HTTP/1.1 100 Continue\r\n\r\n");
    send(socket,
         "a\r\ngrant_type\r\n3f\r\n=client_credentials&client_id=id&client_secret=se/"
         "cr+et&more=1\r\n0\r\n\r\n");
    EXPECT_TRUE(readUntilClosed(socket).value_or("open").starts_with("HTTP/1.1 200")) << answer;
    // Whoever can't be served is told so before sending the body.
    auto refused = receiver->connect();
    send(refused, "POST /api/1.0/files HTTP/1.1\r\nContent-Length: 1000000\r\nExpect: 100-continue\r\n\r\n");
    EXPECT_TRUE(readUntilClosed(refused).value_or("open").starts_with("HTTP/1.1 401"));
}

TEST_F(HostileInputTest, AnswersPeersThatHaveSentTheirLast)
{
    start();
    const std::string form = "POST /auth/oauth2/token HTTP/1.1\r\nContent-Length: "
        + std::to_string(credentials.size()) + "\r\n\r\n" + credentials;
    auto whole = receiver->connect();
    send(whole, form);
    whole.shutdownSend();
    EXPECT_TRUE(readUntilClosed(whole).value_or("open").starts_with("HTTP/1.1 200"));
    for (std::size_t length : {form.size() - 1, form.size() - credentials.size(), std::size_t(40)}) {
        auto cut = receiver->connect();
        send(cut, form.substr(0, length));
        cut.shutdownSend();
        const auto answer = readUntilClosed(cut);
        ASSERT_TRUE(answer) << "the receiver waits for what can't come";
        EXPECT_TRUE(answer->empty() || answer->starts_with("HTTP/1.1 400")) << *answer;
    }
    EXPECT_EQ(receiver->client().sendReport("{}").status, 200);
}

TEST_F(HostileInputTest, AnswersPipelinedRequestsInTheirOrder)
{
    start();
    const std::string token = receiver->client().token;
    std::string requests;
    for (int i = 1; i <= 20; ++i) {
        const std::string report = R"({"description":")" + std::to_string(i) + "\"}";
        requests.append("POST /api/1.0/issue_tracking/apps/a HTTP/1.1\r\nAuthorization: Bearer ")
            .append(token);
        requests.append("\r\nContent-Length: ")
            .append(std::to_string(report.size()))
            .append("\r\n\r\n" + report);
    }
    // What follows a body that was refused unread must not be taken for a request.
    const std::string smuggled = "GET /healthz HTTP/1.1\r\n\r\n";
    requests += "POST /api/1.0/files HTTP/1.1\r\nContent-Length: " + std::to_string(smuggled.size())
        + "\r\n\r\n" + smuggled;
    auto socket = receiver->connect();
    send(socket, requests);
    const std::string answers = readUntilClosed(socket).value_or("open");
    std::size_t position = 0;
    for (int i = 1; i <= 20; ++i) {
        position = answers.find("{\"id\":" + std::to_string(i) + "}", position);
        ASSERT_NE(position, answers.npos) << i;
    }
    EXPECT_NE(answers.find("HTTP/1.1 401", position), answers.npos);
    EXPECT_EQ(answers.find("\"status\""), answers.npos);
}

} // namespace

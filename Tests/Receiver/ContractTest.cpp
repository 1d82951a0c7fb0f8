#include "Support/TestReceiver.h"

namespace {

const std::string registration = R"({"bundle_id":"org.example.app","os":"iOS","platform":"iOS"})";
const std::string enabledCheck
    = R"({"bundle_id":"org.example.app","check_archived":true,"os":"iOS","platform":"iOS"})";

class ContractTest : public ReceiverTest
{
};

TEST_F(ContractTest, CarriesAReportWithItsFiles)
{
    start();
    Client client = receiver->client();
    // Contents that a careless multipart reader changes; one that fills several blocks.
    const std::vector<std::string> contents = {std::string("\x89PNG\r\n\x1a\n\0rest", 13),
                                               "",
                                               "text\r\n--",
                                               "text\n",
                                               "\r\n\r\n-",
                                               std::string(300000, '\r')};
    std::string files;
    for (const std::string &content : contents) {
        const std::string url = client.upload("a.png", content).text("url");
        EXPECT_TRUE(url.starts_with(receiver->url().toString())) << url;
        EXPECT_EQ(client.request("GET", Poco::URI(url).getPath()).body, content);
        files += (files.empty() ? "" : ",") + ("{\"url\":\"" + url + "\"}");
    }
    const std::string screenshot = client.upload("screenshot.jpg", "\xff\xd8\xffpixels").text("url");
    const std::string report = R"({"title":"a/b \u00e9 é","nested":{"url":"x"},"screenshot_url":")"
        + screenshot + R"(","files":[)" + files + "]}";
    EXPECT_EQ(client.sendReport(report).status, 200);

    const auto stored = receiver->reports()->getObject(0);
    EXPECT_EQ(stored->getValue<std::string>("bundle_id"), bundleId);
    EXPECT_EQ(stored->getObject("report")->getValue<std::string>("title"), "a/b é é");
    EXPECT_EQ(stored->getObject("screenshot")->getValue<std::string>("name"), "screenshot.jpg");
    EXPECT_EQ(readFile(stored->getObject("screenshot")->getValue<std::string>("path")), "\xff\xd8\xffpixels");
    ASSERT_EQ(stored->getArray("files")->size(), contents.size());
    for (unsigned i = 0; i < contents.size(); ++i)
        EXPECT_EQ(readFile(stored->getArray("files")->getObject(i)->getValue<std::string>("path")),
                  contents[i]);
}

TEST_F(ContractTest, ServesFilesSafely)
{
    start();
    Client client = receiver->client();
    const auto fetch = [&](const std::string &name, const std::string &bytes) {
        const std::string path = Poco::URI(client.upload(name, bytes).text("url")).getPath();
        return receiver->stranger().request("GET", path);
    };
    EXPECT_EQ(fetch("x.png", "\x89PNG\r\n\x1a\n").header.getContentType(), "image/png");
    EXPECT_EQ(fetch("x", "GIF89a").header.getContentType(), "image/gif");
    EXPECT_EQ(fetch("x", std::string("RIFF\1\0\0\0WEBP", 12)).header.getContentType(), "image/webp");
    const Reply page = fetch("evil\"; é.png", "<script>alert(1)</script>");
    EXPECT_EQ(page.header.getContentType(), "application/octet-stream");
    EXPECT_EQ(page.header.get("X-Content-Type-Options"), "nosniff");
    EXPECT_EQ(page.header.get("Content-Disposition"),
              "attachment; filename=\"evil_; __.png\"; filename*=UTF-8''evil%22%3B%20%C3%A9.png");
    // Two uploads of the same bytes have addresses of their own.
    EXPECT_NE(client.upload("a", "same").text("url"), client.upload("a", "same").text("url"));
    EXPECT_EQ(client.request("GET", "/api/1.0/files/00000000000000000000000000000000").status, 404);
}

TEST_F(ContractTest, LogsWhatItNeedsAndNoFileIds)
{
    const auto log = folder.path() / "log";
    start({}, {"/bin/sh", "-c", "exec \"$0\" \"$@\" 2>" + log.string()});
    Client client = receiver->client();
    const std::string path = Poco::URI(client.upload("a", "b").text("url")).getPath();
    const std::string id = path.substr(path.rfind('/') + 1);
    EXPECT_EQ(client.request("GET", path).status, 200);
    EXPECT_EQ(client.request("GET", "/prefix" + path + "/?" + id).status, 404);
    const std::string text = readFile(log);
    EXPECT_NE(text.find("path=/api/1.0/files/" + id.substr(0, 8) + "... "), std::string::npos) << text;
    EXPECT_EQ(text.find(id), std::string::npos) << text;
    EXPECT_NE(text.find(" error=\"There is nothing at this address\"\n"), std::string::npos) << text;
    EXPECT_NE(text.find(" data=" + data.string() + "\n"), std::string::npos) << text;
}

TEST_F(ContractTest, IssuesTokensToKnownClientsOnly)
{
    start({"--client", "other:x"});
    Client client = receiver->stranger();
    const Reply granted = client.authenticate();
    EXPECT_EQ(granted.status, 200);
    EXPECT_EQ(granted.text("token_type"), "bearer");
    EXPECT_EQ(granted.json()->getValue<int>("expires_in"), 30 * 24 * 3600);
    EXPECT_EQ(
        client.authenticate("grant_type=client_credentials&client_id=id&client_secret=se%2fcr+et").status,
        200);

    const std::string start = "grant_type=client_credentials&client_id=";
    for (const char *wrong : {"id&client_secret=x", "who&client_secret=se/cr+et",
                              "&client_secret=", "other&client_secret=se/cr+et"}) {
        const Reply refused = client.authenticate(start + wrong);
        EXPECT_EQ(refused.status, 401) << wrong;
        EXPECT_EQ(refused.text("error"), "invalid_client");
        EXPECT_FALSE(refused.json()->has("access_token") || refused.json()->has("expires_in"));
    }
    for (const char *malformed :
         {"", "&&==", "grant_type=client_credentials", "grant_type=password&client_id=id&client_secret=x"})
        EXPECT_EQ(client.authenticate(malformed).status, 400) << malformed;
}

TEST_F(ContractTest, RefusesRequestsWithoutAGoodToken)
{
    start();
    Client client = receiver->stranger();
    for (const std::string token : {"", "wrong", "%00"}) {
        client.token = token;
        EXPECT_EQ(client.post(applicationsPath, registration).status, 401);
        EXPECT_EQ(client.upload("a", "b").status, 401);
        EXPECT_EQ(client.sendReport("{}").status, 401);
        EXPECT_EQ(client.request("GET", "/api/1.0/white-labeling").status, 401);
    }
    EXPECT_EQ(receiver->reports()->size(), 0U);
}

TEST_F(ContractTest, ArchivesAndUnarchivesWhileRunning)
{
    start();
    Client client = receiver->client();
    EXPECT_EQ(client.post(applicationsPath, enabledCheck).status, 200);
    EXPECT_EQ(client.post(applicationsPath, registration).status, 200);
    EXPECT_EQ(client.sendReport("{}").status, 200);
    ASSERT_TRUE(receiver->setArchived(true));
    EXPECT_EQ(client.post(applicationsPath, enabledCheck).status, 404);
    EXPECT_EQ(client.post(applicationsPath, registration).status, 200);
    EXPECT_EQ(client.sendReport("{}").status, 403);
    EXPECT_EQ(client.sendReport("{}", "org.example.other").status, 200);
    ASSERT_TRUE(receiver->setArchived(false));
    EXPECT_EQ(client.post(applicationsPath, enabledCheck).status, 200);
    EXPECT_EQ(client.sendReport(R"({"again":1})").status, 200);
    EXPECT_EQ(receiver->reports()->size(), 3U);
}

TEST_F(ContractTest, AnswersWrongAddressesAndMethods)
{
    start();
    Client client = receiver->client();
    EXPECT_EQ(client.request("GET", "/nothing").status, 404);
    EXPECT_EQ(client.post("/api/1.0/issue_tracking/apps/a/b", "{}").status, 404);
    const Reply wrongMethod = client.request("GET", applicationsPath);
    EXPECT_EQ(wrongMethod.status, 405);
    EXPECT_EQ(wrongMethod.header.get("Allow"), "POST");
    EXPECT_EQ(wrongMethod.text("error"), "The method must be POST");
    EXPECT_EQ(client.request("DELETE", "/healthz").header.get("Allow"), "GET, HEAD");
    EXPECT_EQ(client.request("GET", "/api/1.0/white-labeling").status, 404);
    const std::string metrics = client.request("GET", "/metrics").body;
    EXPECT_NE(metrics.find("{route=\"POST api/1.0/issue_tracking/apps\",status=\"405\"} 1\n"), metrics.npos);
}

TEST_F(ContractTest, AnswersHeadAsGetWithoutTheBody)
{
    start();
    Client client = receiver->administrator();
    client.authenticate();
    const std::string file = Poco::URI(client.upload("a", std::string(100000, 'a')).text("url")).getPath();
    client.sendReport("{}");
    // All on one connection: a body where none is expected would be taken for the next answer.
    for (const std::string path : {file.c_str(), "/healthz", "/dashboard/", "/dashboard/api/reports/1",
                                   "/dashboard/api/reports/1/archive", "/api/1.0/white-labeling"}) {
        const Reply head = client.request("HEAD", path);
        const Reply get = client.request("GET", path);
        EXPECT_EQ(head.status, get.status) << path;
        EXPECT_EQ(head.body, "") << path;
        for (const std::string name : {"Content-Length", "Content-Type", "Content-Disposition", "ETag",
                                       "Transfer-Encoding", "Connection"})
            EXPECT_EQ(head.header.get(name, "none"), get.header.get(name, "none")) << path << ' ' << name;
    }
    EXPECT_EQ(client.request("HEAD", applicationsPath).status, 405);
    EXPECT_EQ(receiver->stranger().request("HEAD", "/dashboard/api/reports").status, 401);
}

TEST_F(ContractTest, OffersTheBrandingAndThePublicAddress)
{
    const auto branding = folder.path() / "branding.json";
    writeFile(branding, R"({"text_color":"#fff","background":"#000","placeholder_color":"#111",
        "highlighted_text_color":"#222","slogan":"Bugs!","logo_url":"http://x/"})");
    start({"--white-labeling", branding.string(), "--public-url", "https://bugs.example.org/wexel",
           "--listen", "[::1]:0"});
    Client client = receiver->client();
    EXPECT_EQ(client.request("GET", "/api/1.0/white-labeling").text("slogan"), "Bugs!");
    EXPECT_TRUE(
        client.upload("a", "b").text("url").starts_with("https://bugs.example.org/wexel/api/1.0/files/"));
}

} // namespace

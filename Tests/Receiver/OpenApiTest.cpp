#include "Server.h"
#include "Support/ApiDescription.h"
#include "Support/Pictures.h"
#include "Support/TestReceiver.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

namespace {

using Operation = ApiDescription::Operation;

class OpenApiTest : public ReceiverTest
{
protected:
    /// Sends what the document gives as an example, or \a body in its place, and checks the answer against the document.
    Reply ask(Client &client, const Operation &operation, const std::optional<std::string> &body = {},
              const std::string &query = {}, const std::string &otherType = {})
    {
        const std::string path
            = known.contains(operation.path) ? known.at(operation.path) : operation.examplePath();
        const std::string type = otherType.empty() ? operation.bodyType() : otherType;
        const std::string sent = body                  ? *body
            : replacements.contains(operation.route()) ? replacements.at(operation.route())
                                                       : operation.exampleBody();
        Reply reply = type == "multipart/form-data" && !body
            ? client.upload("a.txt", "text")
            : client.request(operation.method, path + query, sent, type.empty() ? "application/json" : type);
        EXPECT_EQ(description.fault(operation, reply.status, reply.header.getContentType(), reply.body), "")
            << operation.route() << query << ' ' << sent;
        return client.keepSession(std::move(reply));
    }

    /// Someone who may do everything that the document describes.
    Client insider()
    {
        Client client = receiver->administrator();
        client.authenticate();
        return client;
    }

    /// With what the examples speak of.
    void prepare()
    {
        const auto branding = folder.path() / "branding.json";
        writeFile(branding, R"({"text_color":"#fff","background":"#000","placeholder_color":"#111",
            "highlighted_text_color":"#222","slogan":"Bugs!","logo_url":"http://x/"})");
        start({"--white-labeling", branding.string(), "--max-report-size", "100000", "--trusted-proxy",
               "127.0.0.1"});
        Client client = receiver->client();
        const std::string url = client.upload("screenshot.jpg", jpeg(100, 100)).text("url");
        client.sendReport(R"({"screenshot_url":")" + url + R"(","files":[{"url":")" + url + "\"}]}");
        known["/api/1.0/files/{file}"] = Poco::URI(url).getPath();
        replacements["POST /dashboard/api/session"] = R"({"password":")" + receiver->password() + "\"}";
        replacements["POST /dashboard/api/password"]
            = R"({"current":")" + receiver->password() + R"(","new":"battery staple"})";
    }

    ApiDescription description;
    std::map<std::string, std::string> known; ///< paths in place of the examples
    std::map<std::string, std::string> replacements; ///< bodies in place of the examples
};

TEST_F(OpenApiTest, DescribesEveryRouteAndNoOther)
{
    wexel::receiver::Options options;
    options.place.data = data;
    options.listenPort = 0;
    wexel::receiver::DataFolder folder({data}, wexel::receiver::DataFolder::Access::Serve);
    wexel::receiver::Server server(options, folder, wexel::receiver::Port(options));
    std::vector<std::string> described;
    for (const Operation &operation : description.operations())
        described.push_back(operation.route());
    EXPECT_THAT(described, testing::UnorderedElementsAreArray(server.routes()));
    server.stop();
}

/// What ends something comes last, the session at the very end.
int rank(const Operation &operation)
{
    const bool ends = operation.method == "DELETE" || operation.path.ends_with("password")
        || operation.path.ends_with("archive");
    return operation.method == "GET" ? 0 : !ends ? 1 : operation.path.ends_with("session") ? 3 : 2;
}

TEST_F(OpenApiTest, AnswersItsExamplesAsDescribed)
{
    prepare();
    Client client = insider();
    std::vector<Operation> operations = description.operations();
    std::stable_sort(operations.begin(), operations.end(),
                     [](const Operation &a, const Operation &b) { return rank(a) < rank(b); });
    for (const Operation &operation : operations)
        EXPECT_LT(ask(client, operation).status, 400) << operation.route();
}

TEST_F(OpenApiTest, RefusesAsDescribed)
{
    prepare();
    Client client = insider();
    Client stranger = receiver->stranger();
    Client forger = receiver->administrator();
    forger.headers.erase("X-CSRF-Token");
    for (const Operation &operation : description.operations()) {
        if (operation.needs("token") || operation.needs("session")) {
            EXPECT_EQ(ask(stranger, operation).status, 401) << operation.route();
            stranger = receiver->stranger(); // a refused upload ends its connection
        }
        if (operation.needs("csrf")) {
            EXPECT_EQ(ask(forger, operation).status, 403) << operation.route();
        }
        if (!operation.bodyType().empty()) {
            EXPECT_EQ(ask(client, operation, "[nonsense").status, 400) << operation.route();
            client = insider();
        }
        for (const auto &parameter : operation.queryParameters()) {
            const std::string name = parameter->getValue<std::string>("name");
            EXPECT_EQ(ask(client, operation, {}, "?" + name + "=%ff").status, 400) << name;
        }
    }
}

TEST_F(OpenApiTest, RefusesWhatIsTooMuchOrOfAnotherKindAsDescribed)
{
    prepare();
    for (const Operation &operation : description.operations()) {
        Client client = insider();
        const auto responses = operation.description->getObject("responses");
        const bool isUpload = operation.bodyType() == "multipart/form-data";
        if (responses->has("413") && !isUpload) {
            EXPECT_EQ(ask(client, operation, std::string(200'000, ' ')).status, 413) << operation.route();
        }
        client = insider();
        if (responses->has("415")) {
            EXPECT_EQ(ask(client, operation, {}, {}, "text/plain").status, 415) << operation.route();
        }
        int status = 0;
        if (responses->has("409")) {
            for (int i = 0; i < 2; ++i)
                status = ask(client, operation).status;
            EXPECT_EQ(status, 409) << operation.route();
        }
        if (responses->has("429") && operation.path.ends_with("session")) {
            Client guesser = receiver->stranger();
            guesser.headers["X-Forwarded-For"] = "6.6.6.6";
            for (int i = 0; i < 6; ++i)
                status = ask(guesser, operation, R"({"password":"a wrong one"})").status;
            EXPECT_EQ(status, 429);
        }
    }
}

TEST_F(OpenApiTest, MissesAsDescribed)
{
    prepare();
    Client client = insider();
    const std::map<std::string, std::string> unknown = {{"{id}", "2"},
                                                        {"{file}", "0"},
                                                        {"{client}", "none"},
                                                        {"{name}", "none"},
                                                        {"{bundle_id}", "org.example.none"}};
    for (const Operation &operation : description.operations()) {
        const auto place = std::find_if(unknown.begin(), unknown.end(), [&](const auto &entry) {
            return operation.path.find(entry.first) != std::string::npos;
        });
        if (place == unknown.end() || !operation.description->getObject("responses")->has("404"))
            continue;
        std::string path = operation.path;
        known[operation.path] = path.replace(path.find(place->first), place->first.size(), place->second);
        EXPECT_EQ(ask(client, operation).status, 404) << operation.route();
    }
    EXPECT_EQ(client.request("GET", "/dashboard/api/session").text("version"), description.version());
}

} // namespace

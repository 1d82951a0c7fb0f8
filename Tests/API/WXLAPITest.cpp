#include <thread>

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>

#include "API/WXLErrors.h"
#include "Business/ReportKeys.h"
#include "Platform/CapturedLog.h"
#include "Support/ReceiverProcess.h"
#include "Support/ScriptedServer.h"
#include "Support/Wait.h"
#include "Support/World.h"

using namespace wexel;

namespace {

using Answer = ScriptedServer::Answer;
using Request = ScriptedServer::Request;

constexpr auto filesPath = "/api/1.0/files";
constexpr auto reportPath = "/api/1.0/issue_tracking/apps/org.wexel.tests";

WXLWexelReportData reportWith(const QStringList &attachments)
{
    WXLWexelReportData data({{kWXLUserInput, QStringLiteral("Broken")}});
    data.screenshotFile = std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), "screen");
    data.attachedFiles.emplace();
    for (const auto &name : attachments)
        data.attachedFiles->append(std::make_shared<WXLWexelFile>(name, name.toUtf8()));
    return data;
}

/// Sends as the upload operation does, from a thread that may block, and gives the completion's error.
std::optional<Error> send(World &world, const WXLWexelReportData &data)
{
    std::optional<Error> result;
    std::atomic<bool> done = false;
    std::thread sender([&] {
        world.api.sendReport(WXLAPIReport(data), [&](const auto &error) {
            result = error;
            done = true;
        });
    });
    EXPECT_TRUE(spinUntil([&] { return done.load(); }));
    sender.join();
    return result;
}

std::optional<bool> enabled(World &world)
{
    std::optional<bool> result;
    bool done = false;
    world.api.getApplicationEnabled(
        World::bundleId, QStringLiteral("iOS"), QStringLiteral("iOS"), [&](auto answer) {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            result = answer;
            done = true;
        });
    EXPECT_TRUE(spinUntil([&] { return done; }));
    return result;
}

TEST(WXLAPI, SendsAReportWithItsFilesToTheReceiver)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    World &world = World::make(receiver.url());
    world.authorize();

    EXPECT_FALSE(send(world, reportWith({QStringLiteral("a.log")})));
    const auto reports = receiver.reports();
    ASSERT_EQ(reports.size(), 1);
    const auto report = reports[0].toObject().value(u"report").toObject();
    EXPECT_EQ(report.value(u"description").toString(), QStringLiteral("Broken"));
    EXPECT_TRUE(report.value(u"screenshot_url").toString().startsWith(receiver.url()));
    EXPECT_EQ(report.value(u"files").toArray().size(), 1);

    receiver.command(QStringLiteral("archive"), World::bundleId);
    EXPECT_EQ(enabled(world), false);
    EXPECT_EQ(send(world, reportWith({})), (Error{WXLErrorDomainAPI, WXLErrorApplicationArchived}));
    receiver.command(QStringLiteral("unarchive"), World::bundleId);
    EXPECT_EQ(enabled(world), true);
}

TEST(WXLAPI, BuildsItsRequestsAsTheBackendExpectsThem)
{
    ScriptedServer server([](const Request &request) {
        return request.path == filesPath ? Answer{.body = R"({"url": "http://f/1"})"} : Answer{};
    });
    World &world = World::make(server.url());
    EXPECT_FALSE(send(world, reportWith({})));
    ASSERT_EQ(server.requests().size(), 2);
    const Request file = server.requests()[0];
    const Request report = server.requests()[1];
    EXPECT_TRUE(file.header("Content-Type").startsWith("multipart/form-data; boundary=Boundary-"));
    EXPECT_TRUE(file.header("Content-Type").endsWith(",application/json")) << "both values, joined";
    EXPECT_EQ(file.header("Authorization"), "") << "no token, no header";
    EXPECT_EQ(report.header("Content-Type"), "application/json");
    EXPECT_EQ(report.header("Accept"), "application/json");
    EXPECT_EQ(report.path, reportPath);
    const auto body = QJsonDocument::fromJson(report.body).object();
    EXPECT_EQ(body.value(u"screenshot_url"), QStringLiteral("http://f/1"));
    EXPECT_FALSE(body.contains(u"files"));
}

TEST(WXLAPI, PostsAReportWithoutFilesAtOnce)
{
    ScriptedServer server([](const Request &) { return Answer{}; });
    World &world = World::make(server.url());
    EXPECT_FALSE(send(world, WXLWexelReportData(QVariantMap())));
    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_FALSE(QJsonDocument::fromJson(server.requests()[0].body).object().contains(u"screenshot_url"));
}

TEST(WXLAPI, KeepsATokenOnlyFromAnAnswerWithBothKeys)
{
    Answer answer;
    ScriptedServer server([&](const Request &) { return answer; });
    World &world = World::make(server.url());
    const auto authenticate = [&] {
        std::optional<std::pair<bool, bool>> outcome; // response, error
        std::mutex mutex;
        world.api.authenticateWith({}, QStringLiteral("a&b c"), [&](const auto &response, const auto &error) {
            const std::lock_guard lock(mutex);
            outcome = {response.has_value(), error.has_value()};
        });
        EXPECT_TRUE(spinUntil([&] {
            const std::lock_guard lock(mutex);
            return outcome.has_value();
        }));
        return *outcome;
    };
    const std::pair succeeded(true, false);
    const std::pair refused(false, false);
    answer = {.status = 500, .body = R"({"access_token": "t", "expires_in": 10})"};
    EXPECT_EQ(authenticate(), succeeded) << "the status is not looked at";
    EXPECT_EQ(world.api.accessToken(), QStringLiteral("t"));
    EXPECT_EQ(server.requests()[0].body,
              "grant_type=client_credentials&client_id=(null)&client_secret=a&b c");
    EXPECT_EQ(server.requests()[0].header("Content-Type"), "application/x-www-form-urlencoded");
    EXPECT_EQ(server.requests()[0].header("Authorization"), "");

    answer = {.body = R"({"access_token": "t"})"};
    EXPECT_EQ(authenticate(), refused);
    EXPECT_FALSE(world.api.accessToken()) << "the old token is gone";
    answer = {.body = R"({"access_token": "t", "expires_in": null})"};
    EXPECT_EQ(authenticate(), refused);
    answer = {.body = "<html>"};
    EXPECT_EQ(authenticate(), refused);
    answer = {.body = R"({"access_token": "t", "expires_in": 10})"};
    EXPECT_EQ(authenticate(), succeeded);
    answer.cut = Answer::Cut::WithinAnswer;
    EXPECT_EQ(authenticate(), std::pair(false, true));
    EXPECT_EQ(world.api.accessToken(), QStringLiteral("t"))
        << "only an answer with a body replaces the token";
}

TEST(WXLAPI, ReadsTheEnabledCheck)
{
    Answer answer;
    ScriptedServer server([&](const Request &) { return answer; });
    World &world = World::make(server.url());
    for (const int status : {200, 401, 403, 500, 503}) {
        answer.status = status;
        EXPECT_EQ(enabled(world), true) << status;
    }
    EXPECT_EQ(QJsonDocument::fromJson(server.requests()[0].body).object(),
              (QJsonObject{{QStringLiteral("bundle_id"), World::bundleId},
                           {QStringLiteral("check_archived"), true},
                           {QStringLiteral("os"), QStringLiteral("iOS")},
                           {QStringLiteral("platform"), QStringLiteral("iOS")}}));
    answer.status = 404;
    EXPECT_EQ(enabled(world), false);
    answer.cut = Answer::Cut::BeforeAnswer;
    EXPECT_EQ(enabled(world), std::nullopt) << "no answer says nothing";
}

TEST(WXLAPI, MapsTheReportsAnswer)
{
    Answer answer;
    ScriptedServer server([&](const Request &) { return answer; });
    World &world = World::make(server.url());
    const auto code = [&](const Answer &with) {
        answer = with;
        const auto error = send(world, WXLWexelReportData(QVariantMap()));
        return error ? error->code : 0;
    };
    EXPECT_EQ(code({.status = 200, .body = "not JSON"}), 0);
    EXPECT_EQ(code({.status = 200, .cut = Answer::Cut::AfterAnswer}), 0) << "the answer was whole";
    EXPECT_EQ(code({.status = 201}), WXLErrorAPICode);
    EXPECT_EQ(code({.status = 403}), WXLErrorApplicationArchived);
    for (const int status : {400, 401, 404, 500, 503})
        EXPECT_EQ(code({.status = status}), WXLErrorAPICode) << status;
    EXPECT_EQ(code({.cut = Answer::Cut::BeforeAnswer}), WXLErrorAPICode) << "no status";
    answer = {.status = 200, .body = "{\"long\": 1}", .cut = Answer::Cut::WithinAnswer};
    const auto error = send(world, WXLWexelReportData(QVariantMap()));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->domain, UrlErrorDomain) << "accepted, but the connection broke";
}

TEST(WXLAPI, DoesNotPostAReportWhoseFileHasNoAddress)
{
    Answer answer;
    ScriptedServer server([&](const Request &) { return answer; });
    World &world = World::make(server.url());
    const auto outcome = [&](const Answer &upload) {
        answer = upload;
        return send(world, reportWith({}));
    };
    EXPECT_EQ(outcome({.status = 403}), (Error{WXLErrorDomainAPI, WXLErrorApplicationArchived}));
    EXPECT_EQ(outcome({.body = "nonsense"}), std::nullopt) << "no address and no error counts as success";
    EXPECT_EQ(outcome({.body = R"({"url": "http://[f/1"})"}), std::nullopt) << "an address that is none";
    const auto cut = outcome({.cut = Answer::Cut::BeforeAnswer});
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->domain, UrlErrorDomain);
    EXPECT_EQ(server.count(reportPath), 0);
}

/// The error of the upload that finishes last is the report's, whatever came before.
TEST(WXLAPI, PassesOnTheErrorOfTheUploadThatFinishedLast)
{
    QByteArray late;
    const auto refused = [](const CapturedLog &log) {
        return !log.lines().filter(QStringLiteral("status code 403")).isEmpty();
    };
    const auto accepted = [](const CapturedLog &log) {
        return !log.lines().filter(QStringLiteral("Uploaded file to")).isEmpty();
    };
    const CapturedLog *current = nullptr;
    ScriptedServer server([&](const Request &request) -> Answer {
        const bool bad = request.body.contains("filename=\"bad.log\"");
        Answer answer = bad ? Answer{.status = 403} : Answer{.body = R"({"url": "http://f/1"})"};
        if (request.body.contains("filename=\"" + late))
            answer.after = [&, bad] { return bad ? accepted(*current) : refused(*current); };
        return answer;
    });
    const auto sendWith = [&](const QByteArray &lateFile) {
        const CapturedLog log;
        current = &log;
        late = lateFile;
        WXLWexelReportData data = reportWith({QStringLiteral("bad.log"), QStringLiteral("good.log")});
        data.screenshotFile.reset();
        return send(World::make(server.url()), data);
    };
    EXPECT_EQ(sendWith("good.log"), std::nullopt) << "the failure came first";
    EXPECT_EQ(sendWith("bad.log"), (Error{WXLErrorDomainAPI, WXLErrorApplicationArchived}));
    EXPECT_EQ(server.count(reportPath), 0);
}

TEST(WXLAPI, ReadsTheBranding)
{
    Answer answer;
    ScriptedServer server([&](const Request &) { return answer; });
    World &world = World::make(server.url());
    std::optional<WXLAPIBrandingResponse> branding;
    std::optional<Error> failure;
    const auto fetch = [&](const Answer &with) {
        answer = with;
        std::atomic<bool> done = false;
        world.api.getBrandingOnCompletion([&](const auto &response, const auto &error) {
            branding = response;
            failure = error;
            done = true;
        });
        EXPECT_TRUE(spinUntil([&] { return done.load(); }));
    };
    fetch({.status = 404, .body = "nothing"});
    EXPECT_TRUE(!branding && !failure);
    fetch({.body = "nothing"});
    EXPECT_TRUE(!branding && failure);
    fetch({.body = R"({"slogan": "Hi"})"});
    EXPECT_TRUE(!branding && !failure) << "a missing key is no error";
    const QByteArray body
        = R"({"text_color": "#FFFFFF", "background": "#1144f1", "placeholder_color": "6182f1",
                       "highlighted_text_color": "#fbc01b", "slogan": "Hi", "logo_url": "http://l/x.png",
                       "updated": "2019-03-07T14:05:09.123+0100"})";
    for (const char *date : {"2019-03-07", "2019-03-07T14:05:09+0100", "2019-03-07T14:05:09.123",
                             "2019-03-07T14:05:09.123+01:00", "2019-13-07T14:05:09.123+0100"}) {
        fetch({.body = QByteArray(body).replace("2019-03-07T14:05:09.123+0100", date)});
        EXPECT_TRUE(branding && !branding->updated.isValid()) << date;
    }
    fetch({.body = body});
    ASSERT_TRUE(branding);
    EXPECT_EQ(branding->placeholderColor, QColor(0x01, 0x82, 0xF1));
    EXPECT_EQ(branding->updated.toUTC().toString(Qt::ISODateWithMs),
              QStringLiteral("2019-03-07T13:05:09.123Z"));
    EXPECT_EQ(branding->logoUrl, QUrl(QStringLiteral("http://l/x.png")));
}

} // namespace

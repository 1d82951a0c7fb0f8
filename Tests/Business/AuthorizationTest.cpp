#include <gtest/gtest.h>

#include <QJsonDocument>

#include "Business/Flow.h"
#include "Business/ReportAssembly.h"
#include "Business/ReportKeys.h"
#include "Business/RetryState.h"
#include "Business/WXLBlackBox.h"
#include "Business/WXLSessionReporter.h"
#include "Business/WXLWexelPrivate.h"
#include "OfflineManager/WXLUploader.h"
#include "Platform/CapturedLog.h"
#include "Platform/DeviceFacts.h"
#include "Support/ReceiverProcess.h"
#include "Support/Reports.h"
#include "Support/ScriptedServer.h"
#include "Support/Wait.h"
#include "Support/World.h"

using namespace wexel;
using namespace std::chrono_literals;

namespace {

using Answer = ScriptedServer::Answer;
using Request = ScriptedServer::Request;

/// A host with one window of one red pixel.
struct OnePixelFlow final : Flow {
    void startInvocation(unsigned events, std::function<void()> display) override
    {
        chosen = events;
        gesture = std::move(display);
    }
    void open(const FlowServices &services, std::function<void()> onFinish) override
    {
        reports.push_back(services.prepareReportData());
        finish = std::move(onFinish);
    }
    double topWindowLevel() const override { return 0; }
    QImage takeScreenshot() const override
    {
        QImage image(1, 1, QImage::Format_RGB32);
        image.fill(Qt::red);
        return image;
    }
    std::optional<QString> topViewControllerName() const override { return QStringLiteral("PixelPage"); }

    unsigned chosen = 0;
    std::function<void()> gesture;
    std::function<void()> finish;
    std::vector<std::shared_ptr<WXLWexelReportData>> reports; ///< of the flows that were opened
};

/// The entry's inside, around a world. Never destroyed: see World.
struct Entry {
    explicit Entry(World &world) : world(world) { }
    World &world;
    OnePixelFlow flow;
    std::unique_ptr<DeviceFacts> facts = makeDeviceFacts();
    SystemClock clock;
    WXLDateProvider dates{clock};
    ReportAssembly assembly{*facts, world.connection, world.repository, dates, flow, world.folder.path()};
    DeviceMeter meter{*facts, world.connection, dates, world.folder.path()};
    WXLBlackBox blackBox{world.repository, meter, [](auto, const auto &sample) { sample(); }};
    std::optional<WXLSessionReporter> sessions;
    WXLWexelPrivate wexel{
        {world.api, world.repository, world.connection, world.scheduler, world.notifications, flow, assembly,
         blackBox, [this] { sessions.emplace(world.repository, dates, world.notifications, [](auto) {}); },
         world.infoPlist(), world.fileManager.documentsDirectory()}};
};

Entry &makeEntry(World &world)
{
    static auto *entries = new std::vector<Entry *>; // keeps them in LeakSanitizer's sight
    return *entries->emplace_back(new Entry(world));
}

struct AuthorizationTest : testing::Test {
    CapturedLog log;
    Answer token{.status = 401, .body = R"({"error": "invalid_client"})"};
    ScriptedServer server{
        [this](const Request &request) { return request.path == "/auth/oauth2/token" ? token : Answer{}; }};

    [[nodiscard]] qsizetype count(const QString &line) const { return log.lines().filter(line).size(); }
    [[nodiscard]] bool waitFor(const QString &line, qsizetype times = 1) const
    {
        return spinUntil([&] { return count(line) >= times; });
    }
    void letIn() { token = {.body = R"({"access_token": "t", "expires_in": 60})"}; }
};

const QString failed = QStringLiteral("Authentication failed: ");
const QString started = QStringLiteral("WXLWexel - Started authorization procces");

TEST_F(AuthorizationTest, OneFlowIsOpenAtATime)
{
    World &world = World::make(server.url());
    Entry &entry = makeEntry(world);
    entry.wexel.onPrepareData = [](const auto &report) {
        report->quickFacts = QStringLiteral("3 notes");
        return report;
    };
    entry.wexel.startWithInvocationEvents(6);
    EXPECT_EQ(entry.flow.chosen, 6U);
    entry.flow.gesture();
    entry.flow.gesture();
    entry.wexel.display();
    ASSERT_EQ(entry.flow.reports.size(), 1U);
    EXPECT_EQ(entry.flow.reports[0]->quickFacts, QStringLiteral("3 notes"));
    EXPECT_TRUE(entry.flow.reports[0]->gatheredDataDict->contains(kWXLModelName));
    entry.flow.finish();
    entry.wexel.display();
    EXPECT_EQ(entry.flow.reports.size(), 2U);
}

TEST_F(AuthorizationTest, RetriesAfter10And20And40SecondsWhenConnected)
{
    World &world = World::make(server.url());
    makeEntry(world).wexel.startWithInvocationEvents(1);
    EXPECT_EQ(log.lines().mid(0, 3),
              QStringList({started, QStringLiteral("API Client Key: tests"),
                           QStringLiteral("API Secret Key: a secret of the tests")}));
    for (const long seconds : {10L, 20L, 40L}) {
        ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{seconds}; }));
        EXPECT_TRUE(reauthorizationPending);
        EXPECT_FALSE(world.reachability->isScheduled()) << "connected: nothing waits for the network";
        if (seconds == 40)
            letIn();
        world.scheduler.advance(std::chrono::seconds(seconds));
    }
    ASSERT_TRUE(waitFor(QStringLiteral("WXLAPI - Success creating application")));
    EXPECT_TRUE(world.repository.clientAuthorized());
    EXPECT_TRUE(world.scheduler.armed().empty());
    EXPECT_EQ(count(failed + QStringLiteral("(null)")), 3);
}

TEST_F(AuthorizationTest, RetriesAtOnceWhenTheNetworkReturns)
{
    World &world = World::make(server.url(), false);
    makeEntry(world).wexel.startWithInvocationEvents(1);
    ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{10L}; }));
    ASSERT_TRUE(spinUntil([&] { return world.reachability->isScheduled(); }));
    world.scheduler.advance(3s);
    world.reachability->change(true);
    EXPECT_EQ(count(QStringLiteral("WXLWexel - Retrying authorization after regained connection")), 1);
    ASSERT_TRUE(waitFor(failed, 2));
    ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{10L}; }))
        << "the delay began anew";
    EXPECT_EQ(count(started), 2);
}

TEST_F(AuthorizationTest, CancelsInTheBackgroundAndRetriesInTheForeground)
{
    World &world = World::make(server.url(), false);
    makeEntry(world).wexel.startWithInvocationEvents(1);
    ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{10L}; }));
    world.notifications.post(ApplicationDidEnterBackgroundNotification);
    EXPECT_TRUE(world.scheduler.armed().empty());
    EXPECT_FALSE(world.reachability->isScheduled());
    EXPECT_EQ(delay, 5);
    EXPECT_FALSE(reauthorizationPending);
    world.reachability->change(true);
    EXPECT_EQ(count(started), 1) << "nothing is pending";

    letIn();
    world.notifications.post(ApplicationWillEnterForegroundNotification);
    EXPECT_EQ(count(QStringLiteral("WXLWexel - Starting reauth after entering foreground")), 1);
    ASSERT_TRUE(spinUntil([&] { return world.repository.clientAuthorized(); }));
    world.notifications.post(ApplicationDidEnterBackgroundNotification);
    world.notifications.post(ApplicationWillEnterForegroundNotification);
    EXPECT_EQ(count(started), 2) << "authorised: nothing happens";
}

TEST_F(AuthorizationTest, IsRefusedBeforeTheStart)
{
    makeEntry(World::make(server.url())).wexel.authorizeWexel();
    EXPECT_EQ(log.lines().last(), QStringLiteral("WXLWexel - Starter not set, canceling authorization"));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(AuthorizationTest, ArmsOneRetryForTwoFailures)
{
    World &world = World::make(server.url());
    auto &wexel = makeEntry(world).wexel;
    wexel.startWithInvocationEvents(1);
    wexel.authorizeWexel();
    ASSERT_TRUE(waitFor(failed, 2));
    ASSERT_TRUE(spinUntil([&] { return !world.scheduler.armed().empty(); }));
    EXPECT_EQ(world.scheduler.armed(), std::vector{10L});
}

TEST_F(AuthorizationTest, DiscardsStoredReportsOfAnArchivedApplication)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    receiver.command(QStringLiteral("archive"), World::bundleId);
    World &world = World::make(receiver.url());
    world.fileManager.saveDataForReportData(*makeReport(QStringLiteral("late")));
    auto &wexel = makeEntry(world).wexel;
    wexel.startWithInvocationEvents(1);
    ASSERT_TRUE(waitFor(QStringLiteral("WXLWexel: Application is archived.")));
    ASSERT_TRUE(spinUntil([&] { return world.storedReports().isEmpty(); }));
    EXPECT_FALSE(world.repository.applicationActive());

    wexel.autoReport(true, QStringLiteral("dropped"));
    EXPECT_EQ(count(QStringLiteral("Got request to upload data")), 0);
}

TEST_F(AuthorizationTest, SendsAutomaticReportsThroughTheHostsHook)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    World &world = World::make(receiver.url());
    auto &wexel = makeEntry(world).wexel;
    wexel.startWithInvocationEvents(1);
    ASSERT_TRUE(waitFor(QStringLiteral("WXLUploader: No saved offline jobs")));
    wexel.autoReport(true, QStringLiteral("with a picture"));
    wexel.onPrepareData = [](const auto &report) {
        report->quickFacts = QStringLiteral("from the host");
        return report;
    };
    wexel.autoReport(false, QString());
    wexel.onPrepareData = [](const auto &) { return nullptr; };
    wexel.autoReport(false, std::nullopt);
    ASSERT_TRUE(spinUntil([&] { return receiver.reports().size() == 3; }));

    QMap<QString, QJsonObject> byText; // description, "" or "-" for none
    for (const auto &entry : receiver.reports()) {
        const auto report = entry.toObject().value(u"report").toObject();
        byText.insert(report.value(u"description").toString(QStringLiteral("-")), entry.toObject());
    }
    const auto files = [&](const QString &text) { return QJsonDocument(byText.value(text)).toJson(); };
    EXPECT_TRUE(files(QStringLiteral("with a picture")).contains("\"screenshot.jpg\""));
    EXPECT_TRUE(files(QString()).contains("\"emptyScreenshot.jpg\""));
    EXPECT_TRUE(files(QStringLiteral("-")).contains("\"emptyScreenshot.jpg\""))
        << "a null result of the hook";
    const auto reportOf = [&](const QString &text) { return byText.value(text).value(u"report").toObject(); };
    EXPECT_EQ(reportOf(QString()).value(u"quick_facts"), QStringLiteral("from the host"));
    EXPECT_EQ(reportOf(QString()).value(u"title"), QString());
    EXPECT_FALSE(reportOf(QStringLiteral("-")).contains(u"title"));
    EXPECT_EQ(reportOf(QStringLiteral("-")).value(u"current_view"), QStringLiteral("PixelPage"));
}

} // namespace

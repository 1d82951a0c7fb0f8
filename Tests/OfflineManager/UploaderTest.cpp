#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include "Business/RetryState.h"
#include "OfflineManager/WXLUploader.h"
#include "Platform/CapturedLog.h"
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

constexpr auto reportPath = "/api/1.0/issue_tracking/apps/org.wexel.tests";

WXLUploader &makeUploader(World &world)
{
    // Lives as long as its world, which is for the process.
    return *new WXLUploader(world.fileManager, world.api, world.repository, world.scheduler,
                            world.notifications);
}

/// Answers everything well but the reports, which get what the test sets.
struct Backend {
    Answer report;
    ScriptedServer server{[this](const Request &request) {
        return request.path == reportPath ? report : Answer{.body = R"({"url": "http://f/1"})"};
    }};
};

struct UploaderTest : testing::Test {
    CapturedLog log;

    [[nodiscard]] qsizetype count(const QString &line) const { return log.lines().filter(line).size(); }
    [[nodiscard]] bool waitFor(const QString &line, qsizetype times = 1) const
    {
        return spinUntil([&] { return count(line) >= times; });
    }
};

const QString notRemoving = QStringLiteral("WXLUploader: Upload failed, not removing job id");
const QString willRetry = QStringLiteral("WXLUploader - Will retry upload operation after ");
const QString allDone = QStringLiteral("WXLUploader: All upload operations completed succesfully");

TEST_F(UploaderTest, DeliversAndDeletes)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    World &world = World::make(receiver.url());
    world.authorize();
    makeUploader(world).uploadData(makeReport(QStringLiteral("Hello")));
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_EQ(receiver.descriptions(), QStringList(QStringLiteral("Hello")));
    EXPECT_TRUE(world.storedReports().isEmpty());
    EXPECT_TRUE(world.scheduler.armed().empty());
}

TEST_F(UploaderTest, KeepsReportsWhileNotAuthorizedAndSendsThemOnTheNextPass)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    World &world = World::make(receiver.url());
    auto &uploader = makeUploader(world);
    uploader.uploadData(makeReport(QStringLiteral("early")));
    ASSERT_TRUE(waitFor(QStringLiteral("WXLUploader - Will not start upload, client is not authorized")));
    EXPECT_EQ(world.storedReports().size(), 1);

    world.authorize();
    world.notifications.post(ApplicationWillEnterForegroundNotification);
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_EQ(receiver.descriptions(), QStringList(QStringLiteral("early")));
    EXPECT_TRUE(world.storedReports().isEmpty());
}

TEST_F(UploaderTest, RetriesAfter10And20And40SecondsAndStartsOverOnceAllWentWell)
{
    Backend backend{.report = {.status = 500}};
    World &world = World::make(backend.server.url());
    world.fileManager.saveDataForReportData(*makeReport(QStringLiteral("one")));
    world.fileManager.saveDataForReportData(*makeReport(QStringLiteral("two")));
    world.repository.setClientAuthorized(true);
    makeUploader(world);

    qsizetype failures = 0;
    for (const long seconds : {10L, 20L, 40L}) {
        ASSERT_TRUE(waitFor(willRetry + QString::number(seconds)));
        failures += 2;
        ASSERT_TRUE(waitFor(notRemoving, failures));
        EXPECT_EQ(count(notRemoving), failures) << "both of the pass, once";
        ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{seconds}; }));
        world.scheduler.advance(std::chrono::seconds(seconds) - 1ms);
        EXPECT_EQ(count(QStringLiteral("Retrying upload operation")), failures / 2 - 1)
            << "not a moment early";
        if (seconds == 40)
            backend.report.status = 200;
        world.scheduler.advance(1ms);
    }
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_TRUE(world.storedReports().isEmpty());
    EXPECT_EQ(delayInterval, 5);
    EXPECT_TRUE(world.scheduler.armed().empty());
}

TEST_F(UploaderTest, DeletesTheGoodAndRetriesTheBadOfOnePass)
{
    int reports = 0;
    ScriptedServer server([&](const Request &request) {
        if (request.path != reportPath)
            return Answer{.body = R"({"url": "http://f/1"})"};
        return Answer{.status = ++reports == 1 ? 503 : 200};
    });
    World &world = World::make(server.url());
    world.fileManager.saveDataForReportData(*makeReport(QStringLiteral("one")));
    world.fileManager.saveDataForReportData(*makeReport(QStringLiteral("two")));
    world.repository.setClientAuthorized(true);
    makeUploader(world);
    ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{10L}; }));
    EXPECT_EQ(world.storedReports().size(), 1);
    EXPECT_EQ(count(QStringLiteral("WXLUploader: Uploaded succesfully, removing job id")), 1);
}

TEST_F(UploaderTest, SavesAReportAtOnceWhileAnotherIsOnItsWay)
{
    Backend backend;
    bool release = false;
    backend.report.after = [&] { return release; };
    World &world = World::make(backend.server.url());
    world.repository.setClientAuthorized(true);
    auto &uploader = makeUploader(world);
    uploader.uploadData(makeReport(QStringLiteral("slow")));
    ASSERT_TRUE(spinUntil([&] { return backend.server.count(reportPath) == 1; }));
    uploader.uploadData(makeReport(QStringLiteral("second")));
    EXPECT_TRUE(spinUntil([&] { return world.storedReports().size() == 2; }))
        << "nothing is lost if we die now";
    EXPECT_EQ(backend.server.count(reportPath), 1) << "one at a time";
    release = true;
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_EQ(backend.server.count(reportPath), 2);
    EXPECT_TRUE(world.storedReports().isEmpty());
}

TEST_F(UploaderTest, DiscardsEverythingWhenTheApplicationIsArchived)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    World &world = World::make(receiver.url());
    world.authorize();
    for (const char *text : {"one", "two", "three"})
        world.fileManager.saveDataForReportData(*makeReport(QString::fromLatin1(text)));
    receiver.command(QStringLiteral("archive"), World::bundleId);
    makeUploader(world);
    ASSERT_TRUE(waitFor(QStringLiteral("Upload failed, application archived, error code -> 102")));
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_FALSE(world.repository.applicationActive());
    EXPECT_TRUE(world.storedReports().isEmpty());
    EXPECT_TRUE(world.scheduler.armed().empty()) << "no retry";
    EXPECT_TRUE(receiver.reports().isEmpty());
}

/// A host whose last run was authorised may send before this run has a token.
TEST_F(UploaderTest, KeepsAReportThatTheReceiverTurnsAwayForWantOfAToken)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    World &world = World::make(receiver.url());
    world.repository.setClientAuthorized(true);
    makeUploader(world).uploadData(makeReport(QStringLiteral("early bird")));
    ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{10L}; }));
    EXPECT_EQ(world.storedReports().size(), 1);
    EXPECT_EQ(count(notRemoving), 1);

    world.authorize();
    world.scheduler.advance(10s);
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_EQ(receiver.descriptions(), QStringList(QStringLiteral("early bird")));
}

TEST_F(UploaderTest, LeavesUnreadableFilesAloneAndSendsTheOthers)
{
    Backend backend;
    World &world = World::make(backend.server.url());
    QFile foreign(world.fileManager.wexelSavedFolder()->toLocalFile()
                  + QStringLiteral("/BAD.wexelreportfile"));
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly) && foreign.write("bad") == 3);
    foreign.close();
    world.repository.setClientAuthorized(true);
    auto &uploader = makeUploader(world);
    const QString failed = QStringLiteral("WXLUploader: Failed to fetch data for BAD");
    ASSERT_TRUE(waitFor(failed));
    world.fileManager.saveDataForReportData(*makeReport(QStringLiteral("good")));
    uploader.startUnsentJobs();
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_EQ(count(allDone), 1) << "nothing was completed by a pass over BAD alone";
    EXPECT_EQ(count(QStringLiteral("WXLUploader: Got 2 offline jobs to process")), 1);
    EXPECT_EQ(count(failed), 2);
    EXPECT_EQ(world.storedReports(), QStringList(QStringLiteral("BAD.wexelreportfile")));
}

/// Two quick passes enqueue a report twice; what the first one delivered the second one no longer finds.
TEST_F(UploaderTest, SendsAReportOnceAcrossTwoQuickPasses)
{
    Backend backend;
    World &world = World::make(backend.server.url());
    world.fileManager.saveDataForReportData(*makeReport(QStringLiteral("once")));
    world.repository.setClientAuthorized(true);
    makeUploader(world).startUnsentJobs();
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_EQ(backend.server.count(reportPath), 1);
}

TEST_F(UploaderTest, SendsWhatItCannotSave)
{
    Backend backend;
    World &world = World::make(backend.server.url());
    QFile inTheWay(world.fileManager.documentsDirectory().toLocalFile());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    world.repository.setClientAuthorized(true);
    makeUploader(world).uploadData(makeReport(QStringLiteral("unsaved")));
    ASSERT_TRUE(waitFor(allDone));
    EXPECT_EQ(count(QStringLiteral("WXLUploader: Adding operation to queue for job id (null)")), 1);
    EXPECT_EQ(backend.server.count(reportPath), 1);
}

/// Fails in the background, which arms a retry, then succeeds on return: later failures must be retried again.
TEST_F(UploaderTest, RetriesAgainAfterAPassThatOvertookItsRetry)
{
    Backend backend{.report = {.status = 500}};
    World &world = World::make(backend.server.url());
    world.repository.setClientAuthorized(true);
    auto &uploader = makeUploader(world);
    uploader.uploadData(makeReport(QStringLiteral("one")));
    ASSERT_TRUE(spinUntil([&] { return !world.scheduler.armed().empty(); }));
    backend.report.status = 200;
    world.notifications.post(ApplicationWillEnterForegroundNotification);
    ASSERT_TRUE(waitFor(allDone));
    ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed().empty(); }));
    backend.report.status = 500;
    uploader.uploadData(makeReport(QStringLiteral("two")));
    EXPECT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{10L}; }));
}

TEST_F(UploaderTest, ForgetsItsRetryInTheBackground)
{
    Backend backend{.report = {.status = 401}};
    World &world = World::make(backend.server.url());
    world.fileManager.saveDataForReportData(*makeReport(QStringLiteral("one")));
    world.repository.setClientAuthorized(true);
    makeUploader(world);
    ASSERT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{10L}; }));
    world.notifications.post(ApplicationDidEnterBackgroundNotification);
    EXPECT_TRUE(world.scheduler.armed().empty());

    world.notifications.post(ApplicationWillEnterForegroundNotification);
    EXPECT_TRUE(spinUntil([&] { return world.scheduler.armed() == std::vector{10L}; })) << "10 s again";
    EXPECT_EQ(count(notRemoving), 2);
    EXPECT_EQ(world.storedReports().size(), 1);
}

} // namespace

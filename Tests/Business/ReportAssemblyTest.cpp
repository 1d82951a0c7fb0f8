#include <gtest/gtest.h>

#include "Business/Flow.h"
#include "Business/HistoryKeys.h"
#include "Business/ReportAssembly.h"
#include "Business/ReportKeys.h"
#include "Business/SampleRecords.h"
#include "Platform/CapturedLog.h"
#include "Platform/KeyedArchiver.h"
#include "Support/Machine.h"
#include "Support/World.h"

using namespace wexel;

namespace {

struct NoScreens final : Flow {
    void startInvocation(unsigned, std::function<void()>) override { }
    void open(const FlowServices &, std::function<void()>) override { }
    double topWindowLevel() const override { return 0; }
    QImage takeScreenshot() const override { return {}; }
    std::optional<QString> topViewControllerName() const override { return {}; }
};

struct FixedClock final : Clock {
    QDateTime now() const override { return QDateTime::fromMSecsSinceEpoch(1'551'963'909'123, Qt::UTC); }
};

struct ReportAssemblyTest : testing::Test {
    World &world = World::make(QStringLiteral("http://127.0.0.1:9/"));
    Machine machine;
    NoScreens flow;
    FixedClock clock;
    WXLDateProvider dates{clock};
    ReportAssembly assembly{machine, world.connection, world.repository, dates, flow, world.folder.path()};

    void SetUp() override
    {
        qputenv("TZ", "CET-1");
        // The bundles are read once, which these tests do not want to hear of.
        (void)assembly.setupDefaultData();
    }
};

TEST_F(ReportAssemblyTest, WritesEveryFactInItsUnitAndType)
{
    machine.batteryFact = {2, 0.57F};
    machine.serviceFacts.network = {QStringLiteral("wifi"), QStringLiteral("Lab")};
    machine.serviceFacts.permissions = {{Permission::Camera, PermissionState::Granted},
                                        {Permission::Location, PermissionState::GrantedWhileUsing}};
    const QVariantMap expected{
        {kWXLModelName, QStringLiteral("x86_64")},
        {kWXLDeviceType, QStringLiteral("iOS")},
        {kWXLSystemVersion, QStringLiteral("12")},
        {kWXLCameraPermission, QStringLiteral("on")},
        {kWXLLocationPermission, QStringLiteral("only_while_using_the_app")},
        {kWXLTimeZone, QStringLiteral("Europe/Vienna")},
        {kWXLLocale, QStringLiteral("de_AT")},
        {kWXLIssueReportedTime, QStringLiteral("2019-03-07T14:05:09.123+01:00")},
        {kWXLBatteryStatus, QStringLiteral("2")},
        {kWXLBatteryLevel, QStringLiteral("0.57")},
        {kWXLAvailableDiskSpace, QStringLiteral("1000.5")}, // the total, as text
        {kWXLUsedDiskSpace, 700.5},
        {kWXLUsedApplicationMemory, 80.0},
        {kWXLAvailableMemory, 2048.0},
        {kWXLUsedMemory, 1024.0},
        {kWXLDeviceOrientation, 3},
        {kWXLScreenHeight, 2532},
        {kWXLScreenWidth, 1170},
        {kWXLNetworkName, QStringLiteral("Lab")},
        {kWXLNetworkType, QStringLiteral("wifi")},
        {kWXLAuthentication, 1},
    };
    QVariantMap data = assembly.setupDefaultData();
    data.remove(kWXLWexelSDKVersion); // from the bundle beside this program, if it has one
    EXPECT_EQ(data.keys(), expected.keys());
    for (auto entry = expected.begin(); entry != expected.end(); ++entry) {
        EXPECT_EQ(data.value(entry.key()), entry.value()) << entry.key().toStdString();
        EXPECT_EQ(data.value(entry.key()).typeId(), entry.value().typeId()) << entry.key().toStdString();
    }
}

TEST_F(ReportAssemblyTest, LeavesOutWhatCannotBeKnown)
{
    const CapturedLog log;
    machine.broken = true;
    machine.locale.reset();
    world.reachability->change(false);
    const QVariantMap data = assembly.setupDefaultData();
    for (const auto &key :
         {kWXLAvailableDiskSpace, kWXLUsedDiskSpace, kWXLUsedApplicationMemory, kWXLAvailableMemory,
          kWXLUsedMemory, kWXLViewControllerName, kWXLCpuHistory, kWXLSessionStateHistory})
        EXPECT_FALSE(data.contains(key)) << key.toStdString();
    EXPECT_EQ(data.value(kWXLLocale), QStringLiteral("-"));
    EXPECT_EQ(data.value(kWXLBatteryLevel), QStringLiteral("-1"));
    EXPECT_EQ(data.value(kWXLNetworkType), QStringLiteral("offline"));
    EXPECT_EQ(data.value(kWXLNetworkName), QString());
    EXPECT_EQ(log.lines(),
              QStringList({
                  QStringLiteral("Error obtaining system memory info: Domain = Machine, Code = 5"),
                  QStringLiteral("Error with task_info(): out of order"),
                  QStringLiteral("Error with fetching vm statistic: out of order"),
              }));
}

TEST_F(ReportAssemblyTest, TakesStoredHistoriesAndLeavesDamagedOnesOut)
{
    const CapturedLog log;
    const auto record = QVariant::fromValue<ArchivedObject>(
        std::make_shared<Record>(QStringLiteral("1.000"), QStringLiteral("now")));
    world.repository.setData(*KeyedArchiver::archivedDataWithRootObject(QVariantList{record, record}),
                             kWXLCpuHistoryKey);
    world.repository.setData(*KeyedArchiver::archivedDataWithRootObject(QVariant::fromValue<ArchivedObject>(
                                 std::make_shared<WXLWexelFile>(QStringLiteral("n"), "d"))),
                             kUserEventReportKey);
    const QVariantMap data = assembly.setupDefaultData();
    EXPECT_EQ(data.value(kWXLCpuHistory).toList().size(), 2);
    EXPECT_FALSE(data.contains(kWXLUserEventsHistory));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].startsWith(
        QStringLiteral("WXLEventReporter: Failed to deserialize because of error ")));
}

} // namespace

#include <gtest/gtest.h>

#include <atomic>
#include <ctime>
#include <thread>

#include "Business/HistoryKeys.h"
#include "Business/WXLBlackBox.h"
#include "Support/Histories.h"
#include "Support/Machine.h"
#include "Support/Wait.h"
#include "Support/World.h"

using namespace wexel;
using namespace std::chrono_literals;

namespace {

struct BlackBoxTest : testing::Test {
    World &world = World::make(QStringLiteral("http://127.0.0.1:9/"));
    Machine machine;
    SetClock clock;
    WXLDateProvider dates{clock};
    DeviceMeter meter{machine, world.connection, dates, world.folder.path()};
    std::map<std::chrono::milliseconds, std::vector<std::function<void()>>> timers;
    WXLBlackBox blackBox{world.repository, meter,
                         [this](auto interval, auto block) { timers[interval].push_back(block); }};

    [[nodiscard]] std::optional<QString> type() const { return meter.network()->type; }
    [[nodiscard]] std::optional<QString> name() const { return meter.network()->name; }
    [[nodiscard]] QStringList values(const QString &key) const
    {
        return storedValues<Record>(world.repository, key);
    }
    [[nodiscard]] bool becomes(const QString &key, const QStringList &expected) const
    {
        return spinUntil([&] { return values(key) == expected; });
    }
};

} // namespace

TEST_F(BlackBoxTest, KeepsTheLastMinute)
{
    blackBox.startRecording();
    blackBox.startRecording();
    ASSERT_EQ(timers.size(), 2U);
    ASSERT_EQ(timers[500ms].size(), 1U) << "a second start has no second timers";
    ASSERT_EQ(timers[2000ms].size(), 1U);
    for (int tick = 0; tick < 122; ++tick) {
        machine.threads[1] += 125ms;
        timers[500ms].front()();
        if (tick % 4 == 0)
            timers[2000ms].front()();
        clock.time = clock.time.addMSecs(500);
    }
    const QString first = WXLDateProvider::stringFromDate(clock.time.addSecs(-60));
    const QString last = WXLDateProvider::stringFromDate(clock.time.addMSecs(-500));
    for (const QString &key :
         {kWXLCpuHistoryKey, kWXLMemoryUsedByAppHistoryKey, kWXLMemoryUsedByDeviceHistoryKey}) {
        const auto stored = [&] { return storedRecordsOf<Record>(world.repository, key); };
        ASSERT_TRUE(spinUntil([&] { return stored().size() == 120 && stored().back()->timestamp == last; }));
        EXPECT_EQ(stored().front()->timestamp, first);
    }
    EXPECT_EQ(values(kWXLMemoryUsedByAppHistoryKey).last(), QStringLiteral("80.000"));
    EXPECT_EQ(values(kWXLMemoryUsedByDeviceHistoryKey).last(), QStringLiteral("1024.000"));
    EXPECT_GT(values(kWXLCpuHistoryKey).last().toDouble(), 0);
    ASSERT_TRUE(becomes(kWXLOrientationHistoryKey, QStringList(30, QStringLiteral("3"))));
    EXPECT_EQ(WXLBlackBox::networkHistory(world.repository)->size(), 30);
    EXPECT_FALSE(WXLBlackBox::diskSpaceHistory(world.repository));
    EXPECT_FALSE(WXLBlackBox::batteryHistory(world.repository));
}

TEST_F(BlackBoxTest, SwitchedOffForgetsAndSwitchedOnBeginsAnew)
{
    world.repository.setData("left by an earlier version", kWXLStorageHistoryKey);
    blackBox.startRecording();
    timers[500ms].front()();
    ASSERT_TRUE(spinUntil([&] { return values(kWXLCpuHistoryKey).size() == 1; }));
    blackBox.setBlackBoxEnabled(true);
    EXPECT_EQ(values(kWXLCpuHistoryKey).size(), 1) << "no change, nothing happens";

    for (int tick = 0; tick < 50; ++tick)
        timers[500ms].front()(); // many are still on their way when it is switched off
    blackBox.setBlackBoxEnabled(false);
    timers[500ms].front()();
    timers[2000ms].front()();
    for (const QString &key : {kWXLCpuHistoryKey, kWXLMemoryUsedByAppHistoryKey, kWXLStorageHistoryKey,
                               kWXLNetworkHistoryKey, kWXLOrientationHistoryKey})
        EXPECT_FALSE(world.repository.getData(key)) << qPrintable(key);

    blackBox.setBlackBoxEnabled(true);
    timers[500ms].front()();
    EXPECT_TRUE(spinUntil([&] { return values(kWXLCpuHistoryKey).size() == 1; }));
    EXPECT_EQ(timers[500ms].size(), 1U);
}

TEST_F(BlackBoxTest, SwitchedOffBeforeTheStartStaysOff)
{
    blackBox.setBlackBoxEnabled(false);
    blackBox.startRecording();
    EXPECT_TRUE(timers.empty());
}

TEST_F(BlackBoxTest, AFailedMeasurementIsMinusOne)
{
    EXPECT_EQ(meter.storageUsage()->value, QStringLiteral("700.500"));
    EXPECT_EQ(meter.storageUsage()->timestamp, dates.timestamp());
    machine.broken = true;
    EXPECT_EQ(meter.cpuUsage()->value, QStringLiteral("-1.000"));
    EXPECT_EQ(meter.memoryUsedByApplication()->value, QStringLiteral("-1.000"));
    EXPECT_EQ(meter.memoryUsedByDevice()->value, QStringLiteral("-1.000"));
    EXPECT_EQ(meter.storageUsage()->value, QStringLiteral("-1.000"));
    machine.broken = false;
    EXPECT_EQ(meter.cpuUsage()->value, QStringLiteral("-1.000")) << "the span has no beginning";
    EXPECT_EQ(meter.cpuUsage()->value, QStringLiteral("0.000"));
}

TEST_F(BlackBoxTest, NamesTheNetworkAndTheBattery)
{
    EXPECT_EQ(type(), QString()) << "neither Wi-Fi nor radio";
    EXPECT_EQ(name(), QString());
    machine.serviceFacts.network = {QStringLiteral("wifi"), QStringLiteral("Lab")};
    EXPECT_EQ(type(), QStringLiteral("wifi"));
    EXPECT_EQ(name(), QStringLiteral("Lab"));
    world.reachability->change(false);
    EXPECT_EQ(type(), QStringLiteral("offline"));
    EXPECT_EQ(name(), QString());

    EXPECT_EQ(meter.battery()->status, QStringLiteral("0"));
    EXPECT_EQ(meter.battery()->level, QStringLiteral("-1"));
    machine.batteryFact = {2, 0.75F};
    EXPECT_EQ(meter.battery()->status, QStringLiteral("2"));
    EXPECT_EQ(meter.battery()->level, QStringLiteral("0.75"));
}

TEST(CpuMeterTest, SumsWhatTheThreadsUsed)
{
    const ThreadTimes before{{1, 10s}, {2, 5s}, {3, 7s}, {4, 1s}, {5, 9s}};
    EXPECT_DOUBLE_EQ(cpuPercent(before, {{1, 10500ms}, {2, 5500ms}, {3, 7500ms}, {4, 1s}}, 1s), 150)
        << "idle and ended threads add nothing";
    EXPECT_DOUBLE_EQ(cpuPercent(before, {{1, 10s}, {5, 100ms}, {6, 300ms}}, 1s), 40) << "new threads";
    EXPECT_DOUBLE_EQ(cpuPercent(before, before, 0s), 0);
}

// The kernel's own account of the process is the independent reading: other programs may want the cores, too.
TEST(CpuMeterTest, ReadsTwoBusyThreadsAsTheKernelDoes)
{
    const auto facts = makeDeviceFacts();
    CpuMeter meter(*facts);
    const auto begin = std::chrono::steady_clock::now();
    const std::clock_t usedBefore = std::clock();
    (void)meter.percentSinceLast();
    std::atomic<bool> stop = false;
    std::thread busy([&stop] {
        while (!stop) { }
    });
    while (std::chrono::steady_clock::now() - begin < 500ms) { }
    const auto measured = meter.percentSinceLast();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    const double used = static_cast<double>(std::clock() - usedBefore) / CLOCKS_PER_SEC;
    stop = true;
    busy.join();
    ASSERT_TRUE(measured);
    EXPECT_NEAR(*measured, 100 * used / elapsed.count(), 8);
}

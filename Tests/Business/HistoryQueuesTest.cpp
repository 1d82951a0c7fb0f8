#include <gtest/gtest.h>

#include <thread>

#include "Business/NetworkRequestRecord.h"
#include "Business/SampleRecords.h"
#include "Business/TouchRecord.h"
#include "Business/WXLQueue.h"
#include "Business/WXLTimeQueue.h"
#include "Platform/CapturedLog.h"
#include "Platform/SerialQueue.h"
#include "Support/Histories.h"
#include "Support/World.h"

using namespace wexel;

namespace {

const QString key = QStringLiteral("history");
const QDateTime noon(QDate(2026, 11, 21), QTime(12, 0), Qt::UTC);

QString at(qint64 milliseconds)
{
    return WXLDateProvider::stringFromDate(noon.addMSecs(milliseconds));
}

std::shared_ptr<TouchRecord> tap(const QString &name, const std::optional<QString> &timestamp)
{
    return std::make_shared<TouchRecord>(name, QStringLiteral("Page"), QString(), timestamp);
}

struct HistoryQueuesTest : testing::Test {
    World &world = World::make(QStringLiteral("http://127.0.0.1:9/"));
    CapturedLog log;

    void pushNumbers(WXLQueue &queue, int from, int to) const
    {
        for (int number = from; number <= to; ++number)
            queue.push(std::make_shared<Record>(QString::number(number), at(number)));
        queue.workingQueue().waitUntilDone(); // the pushes
        queue.workingQueue().waitUntilDone(); // what they had stored
    }
    [[nodiscard]] QStringList values() const { return storedValues<Record>(world.repository, key); }
    [[nodiscard]] QStringList classNames(WXLTimeQueue &queue) const
    {
        queue.workingQueue().waitUntilDone();
        queue.workingQueue().waitUntilDone();
        QStringList names;
        for (const auto &record : storedRecordsOf<TouchRecord>(world.repository, key))
            names.append(record->className.value_or(QString()));
        return names;
    }
    void store(int count) const
    {
        QVariantList records;
        for (int number = 1; number <= count; ++number)
            records.append(QVariant::fromValue<ArchivedObject>(
                std::make_shared<Record>(QString::number(number), at(number))));
        world.repository.setData(*KeyedArchiver::archivedDataWithRootObject(records), key);
    }
};

TEST_F(HistoryQueuesTest, KeepsTheNewestInOrderAcrossARestart)
{
    {
        WXLQueue queue(world.repository, 3, key);
        pushNumbers(queue, 1, 4);
        queue.push(nullptr);
    }
    EXPECT_EQ(values(), QStringList({QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")}));
    WXLQueue queue(world.repository, 3, key);
    pushNumbers(queue, 5, 5);
    EXPECT_EQ(values(), QStringList({QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5")}));
}

TEST_F(HistoryQueuesTest, HasRoomForOneAtLeast)
{
    for (const qint32 capacity : {0, -5}) {
        WXLQueue queue(world.repository, capacity, key);
        pushNumbers(queue, 1, 2);
        EXPECT_EQ(values(), QStringList(QStringLiteral("2"))) << capacity;
    }
}

TEST_F(HistoryQueuesTest, NeverShortensWhatWasLongerThanItsCapacity)
{
    store(130);
    WXLQueue queue(world.repository, 120, key);
    pushNumbers(queue, 131, 131);
    EXPECT_EQ(values().size(), 131);
    EXPECT_EQ(values().first(), QStringLiteral("1"));
}

TEST_F(HistoryQueuesTest, StartsEmptyWhenTheStoredCopyCannotBeRead)
{
    const auto report = std::make_shared<WXLWexelFile>(QStringLiteral("foreign"), QByteArray("class"));
    const QVariant foreign = QVariantList{QVariant::fromValue<ArchivedObject>(report)};
    store(3);
    const QByteArray truncated = world.repository.getData(key)->chopped(1);
    for (const QByteArray &stored :
         {*KeyedArchiver::archivedDataWithRootObject(foreign), truncated, QByteArray("not an archive"),
          *KeyedArchiver::archivedDataWithRootObject(QVariantMap())}) {
        world.repository.setData(stored, key);
        WXLQueue queue(world.repository, 3, key);
        pushNumbers(queue, 7, 7);
        EXPECT_EQ(values(), QStringList(QStringLiteral("7"))) << stored.toHex().constData();
    }
    EXPECT_EQ(log.lines(), QStringList());
}

TEST_F(HistoryQueuesTest, StoresNothingOnceItIsClosed)
{
    WXLQueue queue(world.repository, 3, key);
    pushNumbers(queue, 1, 1);
    queue.close();
    world.repository.removeObjectForKey(key);
    pushNumbers(queue, 2, 2);
    EXPECT_FALSE(world.repository.getData(key));
}

TEST_F(HistoryQueuesTest, KeepsTheStoredCopyWhenARecordCannotBeArchived)
{
    WXLTimeQueue queue(world.repository, key);
    queue.push(tap(QStringLiteral("kept"), at(0)), {});
    ASSERT_EQ(classNames(queue), QStringList(QStringLiteral("kept")));
    const QVariantList endless(KeyedUnarchiver::maximumElements, 0);
    const auto request = std::make_shared<NetworkRequestRecord>(
        QStringLiteral("GET"), QString(), QString(), QVariantMap{{QStringLiteral("a"), endless}}, at(1));
    queue.push(request, {});
    EXPECT_EQ(classNames(queue), QStringList(QStringLiteral("kept")));
    EXPECT_EQ(log.lines(),
              QStringList({QStringLiteral("WXLTimeQueue: Error serializing data: the archive has more "
                                          "elements or bytes than a reader takes, key -> history"),
                           QStringLiteral("WXLTimeQueue: Error archiving data, key -> history")}));
}

TEST_F(HistoryQueuesTest, ARecordThatComesAgainMovesToTheEndWithItsNewFields)
{
    WXLTimeQueue queue(world.repository, key);
    const auto request = std::make_shared<NetworkRequestRecord>(QStringLiteral("GET"), QString(), QString(),
                                                                QVariantMap(), at(1));
    const auto other = std::make_shared<NetworkRequestRecord>(QStringLiteral("PUT"), QString(), QString(),
                                                              QVariantMap(), at(2));
    queue.push(request, {});
    queue.push(other, noon);
    queue.workingQueue().async([request] { request->duration = 0.25; });
    queue.push(request, {});
    queue.push(nullptr, {});
    queue.workingQueue().waitUntilDone();
    queue.workingQueue().waitUntilDone();
    const auto stored = storedRecordsOf<NetworkRequestRecord>(world.repository, key);
    ASSERT_EQ(stored.size(), 2U);
    EXPECT_EQ(stored[0]->method, QStringLiteral("PUT"));
    EXPECT_EQ(stored[1]->method, QStringLiteral("GET"));
    EXPECT_EQ(stored[1]->duration, 0.25);
}

TEST_F(HistoryQueuesTest, PrunesWhatIsOlderThanTheLimit)
{
    WXLTimeQueue queue(world.repository, key);
    queue.push(tap(QStringLiteral("future"), at(86'400'000)), {}); // the clock was set back since
    queue.push(tap(QStringLiteral("old"), at(-1)), {});
    queue.push(tap(QStringLiteral("equal"), at(0)), {});
    queue.push(tap(QStringLiteral("undated"), {}), {});
    queue.push(tap(QStringLiteral("unreadable"), QStringLiteral("yesterday")), {});
    queue.push(tap(QStringLiteral("older"), at(-60'000)), {});
    queue.removeRecordsOlderThan(noon);
    const QStringList left{QStringLiteral("future"), QStringLiteral("equal"), QStringLiteral("undated"),
                           QStringLiteral("unreadable")};
    EXPECT_EQ(classNames(queue), left);

    WXLTimeQueue restarted(world.repository, key);
    restarted.removeRecordsOlderThan(noon.addMSecs(1));
    EXPECT_EQ(
        classNames(restarted),
        QStringList({QStringLiteral("future"), QStringLiteral("undated"), QStringLiteral("unreadable")}));
}

TEST_F(HistoryQueuesTest, HoldsAsManyAsFitIntoItsBytes)
{
    WXLTimeQueue queue(world.repository, key);
    const QString kilobyte(1024, u'x');
    constexpr int pushed = 3000;
    for (int number = 0; number < pushed; ++number)
        queue.push(tap(QString::number(number) + kilobyte, at(number)), {});
    const QStringList names = classNames(queue);
    EXPECT_EQ(names.last(), QString::number(pushed - 1) + kilobyte);
    EXPECT_GT(names.size(), WXLTimeQueue::maximumBytes / 1300 / 2);
    EXPECT_LT(world.repository.getData(key)->size(), WXLTimeQueue::maximumBytes + 16);
}

TEST_F(HistoryQueuesTest, PushesPrunesAndReadersMayMeet)
{
    constexpr int each = 200;
    WXLTimeQueue queue(world.repository, key);
    std::vector<std::thread> threads;
    for (const QString &name : {QStringLiteral("a"), QStringLiteral("b")})
        threads.emplace_back([&queue, name] {
            for (int number = 0; number < each; ++number)
                queue.push(tap(name, at(number)), {});
        });
    threads.emplace_back([&queue] {
        for (int number = 0; number < each; ++number)
            queue.removeRecordsOlderThan(noon.addMSecs(-number));
    });
    threads.emplace_back([this] {
        for (int number = 0; number < each; ++number)
            (void)storedRecordsOf<TouchRecord>(world.repository, key);
    });
    for (std::thread &thread : threads)
        thread.join();
    const QStringList names = classNames(queue);
    EXPECT_EQ(names.count(QStringLiteral("a")), each);
    EXPECT_EQ(names.count(QStringLiteral("b")), each);
}

} // namespace

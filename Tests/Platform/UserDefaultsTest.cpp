#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <QDateTime>
#include <QPoint>

#include "Platform/CapturedLog.h"
#include "Platform/StoreUnderTest.h"

using namespace wexel;

namespace {

const QString key = QStringLiteral("key");

TEST(UserDefaults, KeepsEveryTypeAcrossLaunches)
{
    const QDateTime date(QDate(2024, 3, 7), QTime(14, 5, 9, 123), Qt::OffsetFromUTC, 3600);
    const QVariantMap map{{QStringLiteral("bytes"), QByteArray("\0\xff", 2)}, {QStringLiteral("yes"), true}};
    const QMap<QString, QVariant> values{
        {QStringLiteral("bool"), false},
        {QStringLiteral("int"), qint64(-7)},
        {QStringLiteral("large"), std::numeric_limits<qint64>::max()},
        {QStringLiteral("double"), 3.0},
        {QStringLiteral("float"), 0.25F},
        {QStringLiteral("text"), QStringLiteral("z\u00fcrich \U0001F41E")},
        {QStringLiteral("no text"), QString()},
        {QStringLiteral("bytes"), QByteArray(10000, 'x')},
        {QStringLiteral("no bytes"), QByteArray()},
        {QStringLiteral("date"), date},
        {QStringLiteral("list"), QVariantList{1LL, QStringLiteral("two"), map}},
        {QStringLiteral("map"), map},
        {QStringLiteral("kl\u00e9 'quoted' \n"), 1LL},
    };
    StoreUnderTest store;
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        store.defaults->setObject(*value, value.key());
    for (int launch = 0; launch < 2; ++launch) {
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            const QVariant read = store.defaults->objectForKey(value.key());
            EXPECT_EQ(read, *value) << qPrintable(value.key());
            const bool isFloat = value->typeId() == QMetaType::Float; // CBOR's numbers are read as double
            EXPECT_EQ(read.typeId(), isFloat ? QMetaType::Double : value->typeId())
                << qPrintable(value.key());
        }
        store.relaunch();
    }
}

TEST(UserDefaults, LargeBytesLieInPiecesThatTwoProcessesMayWrite)
{
    StoreUnderTest store;
    QByteArray bytes;
    for (int number = 0; bytes.size() < 300'000; ++number)
        bytes += QByteArray::number(number * 7919 % 104'729);
    const QByteArray other(200'000, 'o');
    for (const QByteArray &value : {bytes, bytes + "more", QByteArray("head") + bytes, bytes.left(100'000),
                                    QByteArray("small"), bytes}) {
        store.defaults->setObject(value, key);
        store.relaunch();
        EXPECT_EQ(store.defaults->dataForKey(key), value) << value.size();
        const auto second = store.open();
        second->setObject(other, key);
        second->synchronize();
        EXPECT_EQ(store.defaults->dataForKey(key), other) << value.size();
    }
    store.defaults->removeObjectForKey(key);
    store.relaunch();
    EXPECT_EQ(store.defaults->dataForKey(key), std::nullopt);
}

TEST(UserDefaults, TextIsNotBytesAndAbsentIsNothing)
{
    StoreUnderTest store;
    store.defaults->setObject(QStringLiteral("text"), key);
    EXPECT_EQ(store.defaults->dataForKey(key), std::nullopt);
    store.defaults->setObject(QByteArray("bytes"), key);
    EXPECT_EQ(store.defaults->dataForKey(key), QByteArray("bytes"));
    store.defaults->setObject(QVariant(), key);
    EXPECT_FALSE(store.defaults->objectForKey(key).isValid());
    store.relaunch();
    EXPECT_FALSE(store.defaults->objectForKey(key).isValid());
}

TEST(UserDefaults, RefusesWhatIsNoPropertyListValue)
{
    StoreUnderTest store;
    store.defaults->setObject(1, key);
    const CapturedLog log;
    store.defaults->setObject(QPoint(1, 2), key);
    store.defaults->setObject(QVariantList{QVariantList{QPoint(1, 2)}}, key);
    EXPECT_EQ(store.defaults->objectForKey(key), QVariant(1));
    ASSERT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.lines().first().contains(QStringLiteral("QPoint under key")));
}

TEST(UserDefaults, GathersByteBuffersAndWritesTheRestAtOnce)
{
    StoreUnderTest store;
    const auto other = store.open();
    for (int i = 0; i < 10; ++i)
        store.defaults->setObject(QByteArray::number(i), key);
    EXPECT_EQ(store.later.pending(), 1U);
    EXPECT_LE(store.later.longestDelay(), std::chrono::milliseconds(900));
    EXPECT_EQ(store.defaults->dataForKey(key), QByteArray("9"));
    EXPECT_EQ(other->dataForKey(key), std::nullopt);
    store.later.runPending();
    EXPECT_EQ(other->dataForKey(key), QByteArray("9"));
    EXPECT_EQ(store.later.pending(), 0U) << "runs while nothing is gathered";

    store.defaults->setObject(true, QStringLiteral("flag"));
    EXPECT_EQ(other->objectForKey(QStringLiteral("flag")), QVariant(true));
    store.defaults->setObject(QByteArray("last"), key);
    EXPECT_EQ(store.later.pending(), 1U);
    store.defaults->synchronize();
    EXPECT_EQ(other->dataForKey(key), QByteArray("last"));
    store.defaults.reset();
    store.later.runPending(); // a block that outlives its store does nothing
}

TEST(UserDefaults, TwoProcessesOfOneHostSeeEachOther)
{
    StoreUnderTest store;
    const auto other = store.open();
    constexpr int writes = 100;
    const auto count = [](const std::shared_ptr<UserDefaults> &defaults, const QString &name) {
        for (int i = 1; i <= writes; ++i)
            defaults->setObject(i, name);
    };
    std::thread mine(count, store.defaults, QStringLiteral("mine"));
    std::thread theirs(count, other, QStringLiteral("theirs"));
    mine.join();
    theirs.join();
    EXPECT_EQ(store.defaults->objectForKey(QStringLiteral("theirs")), QVariant(writes));
    EXPECT_EQ(other->objectForKey(QStringLiteral("mine")), QVariant(writes));
    store.defaults->removeObjectForKey(QStringLiteral("theirs"));
    EXPECT_FALSE(other->objectForKey(QStringLiteral("theirs")).isValid());
}

TEST(UserDefaults, ReadersSeeEveryWriteInOrder)
{
    StoreUnderTest store;
    constexpr int writes = 400;
    std::atomic<bool> done = false;
    const auto write = [&store](const QString &name) {
        for (int i = 1; i <= writes; ++i) {
            store.defaults->setObject(QByteArray::number(i), name);
            EXPECT_EQ(store.defaults->dataForKey(name), QByteArray::number(i));
        }
    };
    const auto read = [&](const QString &name) {
        for (int last = 0; !done;) {
            const int now = store.defaults->dataForKey(name).value_or("0").toInt();
            EXPECT_GE(now, last);
            last = now;
            store.later.runPending();
        }
    };
    std::thread firstReader(read, QStringLiteral("first"));
    std::thread secondReader(read, QStringLiteral("second"));
    std::thread firstWriter(write, QStringLiteral("first"));
    std::thread secondWriter(write, QStringLiteral("second"));
    firstWriter.join();
    secondWriter.join();
    done = true;
    firstReader.join();
    secondReader.join();
    store.relaunch();
    EXPECT_EQ(store.defaults->dataForKey(QStringLiteral("first")), QByteArray::number(writes));
    EXPECT_EQ(store.defaults->dataForKey(QStringLiteral("second")), QByteArray::number(writes));
}

} // namespace

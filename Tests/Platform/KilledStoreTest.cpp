#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>

#include "Platform/CapturedLog.h"
#include "Platform/StoreUnderTest.h"

using namespace wexel;

namespace {

const QString flagKey = QStringLiteral("flag");
const QString historyKey = QStringLiteral("history");

/// The last number that the writer gave for the name, in its complete lines.
int lastPromised(const QByteArray &output, const QByteArray &name)
{
    int last = 0;
    const QList<QByteArray> lines = output.left(output.lastIndexOf('\n') + 1).split('\n');
    for (const QByteArray &line : lines)
        if (line.startsWith(name + ' '))
            last = line.mid(name.size() + 1).toInt();
    return last;
}

TEST(KilledStore, KeepsFlagsAndFlushedHistories)
{
    StoreUnderTest store;
    int flag = 0;
    int history = 0;
    for (int round = 0; round < 12; ++round) {
        QProcess writer;
        writer.start(QStringLiteral(STORE_WRITER), {store.path});
        QByteArray output;
        const int enough = 50 + QRandomGenerator::global()->bounded(8000);
        while (output.size() < enough && writer.waitForReadyRead())
            output += writer.readAllStandardOutput();
        ASSERT_GE(output.size(), enough) << "the writer stopped by itself";
        ::kill(static_cast<pid_t>(writer.processId()), SIGKILL);
        ASSERT_TRUE(writer.waitForFinished());
        output += writer.readAllStandardOutput();

        store.relaunch();
        flag = store.defaults->objectForKey(flagKey).toInt();
        history = store.defaults->dataForKey(historyKey).value_or(QByteArray()).toInt();
        EXPECT_GE(flag, lastPromised(output, "flag"));
        EXPECT_GE(history, lastPromised(output, "history"));
    }
}

/// What is on the disk after a power cut: any prefix of what was written since the last sync, with torn
/// blocks.
class PowerCut : public testing::Test
{
protected:
    StoreUnderTest store;
    QTemporaryDir after;
    QString copy = after.filePath(QStringLiteral("defaults.sqlite"));

    static QByteArray contentOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void writeTo(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
    }
    /// Flag and history are written together, so they must come back together.
    void write(int i) const
    {
        store.defaults->setObject(QByteArray::number(i).rightJustified(3000, '0'), historyKey);
        store.defaults->setObject(i, flagKey);
    }
    /// Opens the copy, returns the flag in it, and checks that it agrees with the history and can be written.
    int reopened(const QByteArray &database, const QByteArray &log)
    {
        for (const QString &name : QDir(after.path()).entryList(QDir::Files))
            QFile::remove(after.filePath(name));
        writeTo(copy, database);
        writeTo(copy + QStringLiteral("-wal"), log);
        const auto defaults = makeUserDefaults(copy, store.later.runLater());
        const int flag = defaults->objectForKey(flagKey).toInt();
        EXPECT_EQ(defaults->dataForKey(historyKey).value_or(QByteArray()).toInt(), flag);
        defaults->setObject(QStringLiteral("new"), QStringLiteral("text"));
        EXPECT_EQ(makeUserDefaults(copy, store.later.runLater())->objectForKey(QStringLiteral("text")),
                  QVariant(QStringLiteral("new")));
        return flag;
    }
};

TEST_F(PowerCut, LosesOnlyTheEndOfTheLog)
{
    constexpr int writes = 12;
    for (int i = 1; i <= writes; ++i)
        write(i);
    const QByteArray database = contentOf(store.path);
    const QByteArray log = contentOf(store.path + QStringLiteral("-wal"));
    EXPECT_EQ(reopened(database, log), writes);
    int last = 0;
    for (qsizetype length = 0; length < log.size(); length += 211) {
        const int flag = reopened(database, log.left(length));
        EXPECT_GE(flag, last) << "log cut to " << length;
        last = flag;
        QByteArray torn = log;
        torn.replace(length, 512, QByteArray(512, '\0'));
        torn.truncate(log.size());
        EXPECT_LE(reopened(database, torn), writes);
    }
}

TEST_F(PowerCut, OpensWhateverIsLeftOfTheDatabase)
{
    for (int i = 1; i <= 5; ++i)
        write(i);
    store.defaults.reset();
    const QByteArray database = contentOf(store.path);
    ASSERT_GT(database.size(), 3000);
    const CapturedLog quiet;
    for (qsizetype length = 0; length < database.size(); length += 101)
        EXPECT_THAT(reopened(database.left(length), {}), testing::AnyOf(0, 5)) << "cut to " << length;
    EXPECT_EQ(reopened(database, {}), 5);
}

} // namespace

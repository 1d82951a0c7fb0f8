#include <gtest/gtest.h>

#include <csignal>

#include <sys/resource.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

#include <sqlite3.h>

#include "Platform/CapturedLog.h"
#include "Platform/StoreUnderTest.h"

using namespace wexel;

namespace {

const QString key = QStringLiteral("key");
const QString text = QStringLiteral("value");

void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// No file can grow while it lives, as on a full disk.
class FullDisk
{
public:
    FullDisk()
    {
        m_previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_previous);
        const rlimit none{0, m_previous.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_previousHandler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_previous{};
    void (*m_previousHandler)(int) = nullptr;
};

/// The folder and what is in it can only be read while it lives, by root too.
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString &folder) : m_folder(folder)
    {
        for (QString path = folder; path != QDir::tempPath(); path = QFileInfo(path).path())
            chmod(path, 0555);
        for (const QString &name : QDir(folder).entryList(QDir::Files))
            chmod(folder + QLatin1Char('/') + name, 0444);
        become(65534);
    }
    ~ReadOnlyFolder()
    {
        become(0);
        for (QString path = m_folder; path != QDir::tempPath(); path = QFileInfo(path).path())
            chmod(path, 0755);
        for (const QString &name : QDir(m_folder).entryList(QDir::Files))
            chmod(m_folder + QLatin1Char('/') + name, 0644);
    }
    ReadOnlyFolder(const ReadOnlyFolder &) = delete;
    ReadOnlyFolder &operator=(const ReadOnlyFolder &) = delete;

private:
    static void become(uid_t user) { EXPECT_TRUE(getuid() != 0 || seteuid(user) == 0); }
    static void chmod(const QString &path, mode_t mode)
    {
        ::chmod(QFile::encodeName(path).constData(), mode);
    }
    QString m_folder;
};

/// What must hold for a store that cannot be written, whatever the reason.
void expectKeepsInMemory(StoreUnderTest &store, const CapturedLog &log)
{
    for (int i = 0; i < 3; ++i) {
        store.defaults->setObject(text, QStringLiteral("text"));
        store.defaults->setObject(QByteArray(50000, 'x'), QStringLiteral("bytes"));
        store.later.runPending();
    }
    EXPECT_EQ(store.defaults->objectForKey(QStringLiteral("text")), QVariant(text));
    EXPECT_EQ(store.defaults->dataForKey(QStringLiteral("bytes")), QByteArray(50000, 'x'));
    EXPECT_EQ(store.defaults->objectForKey(key), QVariant(text)) << "from before";
    ASSERT_EQ(log.lines().size(), 1) << qPrintable(log.lines().join(QLatin1Char('\n')));
    EXPECT_TRUE(log.lines().first().contains(QStringLiteral("cannot write ") + store.path));
}

void expectWritesAgain(StoreUnderTest &store)
{
    store.defaults->setObject(1, QStringLiteral("next"));
    const auto other = store.open();
    EXPECT_EQ(other->objectForKey(QStringLiteral("text")), QVariant(text));
    EXPECT_EQ(other->dataForKey(QStringLiteral("bytes")), QByteArray(50000, 'x'));
}

TEST(BrokenStore, FullDiskKeepsValuesInMemoryAndWritesThemLater)
{
    StoreUnderTest store;
    store.defaults->setObject(text, key);
    {
        const FullDisk full;
        const CapturedLog log;
        expectKeepsInMemory(store, log);
    }
    expectWritesAgain(store);
}

TEST(BrokenStore, ReadOnlyDiskKeepsValuesInMemoryAndWritesThemLater)
{
    StoreUnderTest store;
    store.defaults->setObject(text, key);
    store.relaunch();
    {
        const ReadOnlyFolder readOnly(QFileInfo(store.path).path());
        const CapturedLog log;
        expectKeepsInMemory(store, log);
    }
    expectWritesAgain(store);
}

TEST(BrokenStore, DamagedOrForeignFileIsMovedAside)
{
    StoreUnderTest sound;
    sound.defaults->setObject(QByteArray(20000, 'x').replace(100, 1, "y"), key);
    for (int i = 0; i < 200; ++i)
        sound.defaults->setObject(i, QStringLiteral("key %1").arg(i));
    sound.defaults.reset();
    QFile file(sound.path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray damaged = file.readAll();
    damaged.replace(2048, 1024, QByteArray(1024, '\x5a'));

    sqlite3 *foreign = nullptr;
    const QString foreignPath = sound.folder.filePath(QStringLiteral("foreign"));
    ASSERT_EQ(sqlite3_open(foreignPath.toUtf8().constData(), &foreign), SQLITE_OK);
    sqlite3_exec(foreign, "CREATE TABLE theirs (a)", nullptr, nullptr, nullptr);
    sqlite3_close(foreign);
    QFile foreignFile(foreignPath);
    ASSERT_TRUE(foreignFile.open(QIODevice::ReadOnly));

    const QList<std::pair<QByteArray, QString>> cases{
        {QByteArray("just a text file, longer than a header of SQLite\n").repeated(40),
         QStringLiteral("not a database")},
        {damaged, QStringLiteral("Page 3")},
        {foreignFile.readAll(), QStringLiteral("another application")},
    };
    for (const auto &[content, reason] : cases) {
        StoreUnderTest store;
        writeFile(store.path, content);
        const CapturedLog log;
        EXPECT_FALSE(store.defaults->objectForKey(key).isValid());
        store.defaults->setObject(text, key);
        EXPECT_EQ(store.open()->objectForKey(key), QVariant(text));
        ASSERT_EQ(log.lines().size(), 1) << qPrintable(log.lines().join(QLatin1Char('\n')));
        EXPECT_TRUE(log.lines().first().contains(store.path)) << qPrintable(log.lines().first());
        EXPECT_TRUE(log.lines().first().contains(reason)) << qPrintable(log.lines().first());
        QFile aside(store.path + QStringLiteral(".damaged"));
        ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
        EXPECT_EQ(aside.readAll(), content);
    }
}

TEST(BrokenStore, DeletedFolderStartsAfresh)
{
    StoreUnderTest store;
    store.defaults->setObject(text, key);
    QDir(QFileInfo(store.path).path()).removeRecursively();
    EXPECT_FALSE(store.defaults->objectForKey(key).isValid());
    store.defaults->setObject(text, key);
    EXPECT_EQ(store.open()->objectForKey(key), QVariant(text));
}

TEST(BrokenStore, IsForItsOwnerOnly)
{
    StoreUnderTest store;
    store.defaults->setObject(text, key);
    for (const QFileInfo &file : QFileInfo(store.path).dir().entryInfoList(QDir::Files))
        EXPECT_FALSE(file.permissions() & (QFile::ReadGroup | QFile::ReadOther))
            << qPrintable(file.fileName());
}

} // namespace

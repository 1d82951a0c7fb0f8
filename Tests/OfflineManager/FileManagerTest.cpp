#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include "Business/SampleRecords.h"
#include "OfflineManager/WXLFileManager.h"
#include "Platform/CapturedLog.h"
#include "Platform/KeyedArchiver.h"
#include "Support/Reports.h"

using namespace wexel;

namespace {

struct FileManagerTest : testing::Test {
    QTemporaryDir folder;
    WXLFileManager manager{QUrl::fromLocalFile(folder.filePath(QStringLiteral("Documents")))};
    QString saved = folder.filePath(QStringLiteral("Documents/WexelSavedDataDirectory"));

    [[nodiscard]] QString path(const QString &identifier) const
    {
        return saved + u'/' + identifier + WexelFileExtension;
    }
    void write(const QString &name, const QByteArray &content) const
    {
        ASSERT_TRUE(QDir().mkpath(saved));
        QFile file(saved + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] QByteArray read(const QString &identifier) const
    {
        QFile file(path(identifier));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};

TEST_F(FileManagerTest, GivesBackWhatItSaved)
{
    auto report = makeReport(QStringLiteral("crème brûlée"));
    report->quickFacts = QStringLiteral("facts");
    report->attachedFiles
        = {{std::make_shared<WXLWexelFile>(QStringLiteral("../../etc/passwd"), QByteArray("\0\xFF", 2))}};
    report->gatheredDataDict->insert(kWXLUsedMemory, 12.5);
    report->gatheredDataDict->insert(
        kWXLCpuHistory,
        QVariantList{QVariant::fromValue<ArchivedObject>(
            std::make_shared<Record>(QStringLiteral("1.000"), QStringLiteral("now")))});
    const auto first = manager.saveDataForReportData(*report);
    WXLWexelReportData nothing{QVariantMap()};
    nothing.gatheredDataDict.reset();
    const auto second = manager.saveDataForReportData(nothing);
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_EQ(*first, first->toUpper());
    EXPECT_EQ(manager.savedReports().size(), 2);

    const auto loaded = manager.loadReportDataForIdentifier(*first);
    ASSERT_TRUE(loaded && loaded->screenshotFile && loaded->attachedFiles);
    EXPECT_EQ(loaded->quickFacts, report->quickFacts);
    EXPECT_EQ(loaded->screenshotFile->name(), report->screenshotFile->name());
    EXPECT_TRUE(loaded->screenshotFile->fileIsEqual(*report->screenshotFile));
    EXPECT_EQ(loaded->attachedFiles->first()->name(), QStringLiteral("../../etc/passwd"));
    EXPECT_EQ(loaded->attachedFiles->first()->data(), QByteArray("\0\xFF", 2));
    EXPECT_EQ(loaded->gatheredDataDict->value(kWXLUserInput), report->gatheredDataDict->value(kWXLUserInput));
    EXPECT_EQ(loaded->gatheredDataDict->value(kWXLUsedMemory), QVariant(12.5));
    const auto record = std::dynamic_pointer_cast<Record>(
        loaded->gatheredDataDict->value(kWXLCpuHistory).toList().value(0).value<ArchivedObject>());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->value, QStringLiteral("1.000"));

    const auto empty = manager.loadReportDataForIdentifier(*second);
    ASSERT_TRUE(empty);
    EXPECT_TRUE(!empty->quickFacts && !empty->attachedFiles && !empty->screenshotFile
                && !empty->gatheredDataDict);
}

TEST_F(FileManagerTest, KeepsWhatCanBeKeptOfAReportWithForeignValues)
{
    const CapturedLog log;
    auto report = makeReport(QStringLiteral("kept"));
    report->gatheredDataDict->insert(QStringLiteral("host"),
                                     QVariant::fromValue(QUrl(QStringLiteral("http://x"))));
    const auto identifier = manager.saveDataForReportData(*report);
    ASSERT_TRUE(identifier);
    EXPECT_EQ(log.lines().filter(QStringLiteral("WXLFileManager: Error serializing data: ")).size(), 1);
    const auto loaded = manager.loadReportDataForIdentifier(*identifier);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->gatheredDataDict->keys(), QStringList(kWXLUserInput));
}

TEST_F(FileManagerTest, RefusesDamagedAndForeignFiles)
{
    const auto identifier = manager.saveDataForReportData(*makeReport(QStringLiteral("whole")));
    ASSERT_TRUE(identifier);
    const QByteArray whole = read(*identifier);
    const auto archived
        = [](const QVariant &root) { return *KeyedArchiver::archivedDataWithRootObject(root); };
    const auto refused = [&](const QByteArray &content, bool deserializes) {
        const CapturedLog log;
        write(QStringLiteral("X") + WexelFileExtension, content);
        EXPECT_FALSE(manager.loadReportDataForIdentifier(QStringLiteral("X")));
        EXPECT_EQ(log.lines().filter(QStringLiteral("Failed to deserialize because of error")).isEmpty(),
                  deserializes);
        EXPECT_EQ(log.lines().last(), QStringLiteral("WXLFileManager: Did not load data for url"));
    };
    for (qsizetype length = 0; length < whole.size(); length += 7)
        refused(whole.left(length), false);
    refused("plain text", false);
    refused(archived(QVariantList{1}), true); // an allowed kind, but no report
    refused(archived(QVariant::fromValue<ArchivedObject>(
                std::make_shared<WXLWexelFile>(QStringLiteral("n"), "d"))),
            true);
    EXPECT_TRUE(manager.hasReport(QStringLiteral("X"))) << "an unreadable file stays";
}

TEST_F(FileManagerTest, IsSilentAboutAMissingFile)
{
    (void)manager.wexelSavedFolder();
    const CapturedLog log;
    EXPECT_FALSE(manager.loadReportDataForIdentifier(QStringLiteral("none")));
    EXPECT_EQ(log.lines(),
              QStringList(QStringLiteral("WXLFileManager: Existing target directory at ") + saved));
}

TEST_F(FileManagerTest, ListsOnlyReportsAndDeletesEverything)
{
    const CapturedLog log;
    EXPECT_TRUE(manager.savedReports().isEmpty());
    EXPECT_EQ(log.lines().last(),
              QStringLiteral("WXLFileManager: Can't load stored files, directory does not exist ") + saved);

    const auto identifier = manager.saveDataForReportData(*makeReport(QStringLiteral("r")));
    write(QStringLiteral("note.txt"), "n");
    write(QStringLiteral("A.wexelreportfileB.wexelreportfile"), "n");
    EXPECT_TRUE(QDir(saved).mkdir(QStringLiteral("folder")));
    QStringList listed = manager.savedReports();
    listed.sort();
    QStringList expected{QStringLiteral("AB"), *identifier};
    expected.sort();
    EXPECT_EQ(listed, expected) << "every occurrence of the extension is removed";

    manager.deleteReportDataForIdentifier(*identifier);
    EXPECT_EQ(log.lines().last(), QStringLiteral("WXLFileManager: Delete file at ") + path(*identifier));
    manager.deleteReportDataForIdentifier(*identifier);
    EXPECT_EQ(log.lines().last(),
              QStringLiteral("WXLFileManager: Can not delete file at ") + path(*identifier));
    manager.deleteAllLocalReportData();
    EXPECT_TRUE(QDir(saved).isEmpty());
}

TEST_F(FileManagerTest, RemovesOldAbandonedWritesOnly)
{
    const auto identifier = manager.saveDataForReportData(*makeReport(QStringLiteral("r")));
    const auto age = [&](const QString &name, int seconds) {
        write(name, "half");
        QFile file(saved + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds),
                                     QFileDevice::FileModificationTime));
    };
    age(QStringLiteral("OLD.wexelreportfile.aBcDeF"), 7200);
    age(QStringLiteral("NEW.wexelreportfile.aBcDeF"), 10);
    age(QStringLiteral("REPORT.wexelreportfile"), 7200);
    manager.removeAbandonedWrites();
    const auto names = QDir(saved).entryList(QDir::Files);
    EXPECT_EQ(names.size(), 3);
    EXPECT_FALSE(names.contains(QStringLiteral("OLD.wexelreportfile.aBcDeF")));
}

TEST_F(FileManagerTest, SaysWhenItsFolderCannotBeMade)
{
    QFile inTheWay(folder.filePath(QStringLiteral("Documents")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const CapturedLog log;
    EXPECT_FALSE(manager.saveDataForReportData(*makeReport(QStringLiteral("r"))));
    EXPECT_EQ(log.lines(),
              QStringList({
                  QStringLiteral("WXLFileManager: Need to create target directory at ") + saved,
                  QStringLiteral("WXLFileManager: Error creating target directory: (error)"),
                  QStringLiteral("WXLFileManager: Did not save encoded data to path"),
              }));
    EXPECT_FALSE(WXLFileManager(QUrl()).saveDataForReportData(*makeReport(QStringLiteral("r"))));
    EXPECT_TRUE(
        log.lines().last().startsWith(QStringLiteral("WXLFileManager: Can not generate save path for ")));
}

/// The kernel refuses what goes beyond a limit on file sizes as it refuses writes to a full disk.
TEST_F(FileManagerTest, LeavesNothingBehindWhenTheDiskIsFull)
{
    auto large = makeReport(QStringLiteral("large"));
    large->screenshotFile
        = std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), QByteArray(1 << 20, 'x'));
    const auto kept = manager.saveDataForReportData(*makeReport(QStringLiteral("kept")));
    rlimit previous{};
    getrlimit(RLIMIT_FSIZE, &previous);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{64 << 10, previous.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto identifier = manager.saveDataForReportData(*large);
    setrlimit(RLIMIT_FSIZE, &previous);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(identifier);
    EXPECT_EQ(manager.savedReports(), QStringList(*kept));
    EXPECT_EQ(QDir(saved).entryList(QDir::Files | QDir::Hidden).size(), 1) << "no half-written file";
    EXPECT_TRUE(manager.loadReportDataForIdentifier(*kept));
}

TEST(WexelFile, ReadsLocalFilesAndComparesByContent)
{
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/notes-XXXXXX.txt"));
    ASSERT_TRUE(file.open());
    file.write("notes");
    file.flush();
    const auto read = WXLWexelFile::initWithFileURL(QUrl::fromLocalFile(file.fileName()));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->name(), QFileInfo(file.fileName()).fileName());
    EXPECT_TRUE(read->fileIsEqual(WXLWexelFile(QStringLiteral("another name"), "notes")));
    EXPECT_FALSE(read->fileIsEqual(WXLWexelFile(read->name(), "other")));
    EXPECT_FALSE(
        WXLWexelFile::initWithName(QStringLiteral("n"), QUrl::fromLocalFile(file.fileName() + u'x')));
    EXPECT_FALSE(WXLWexelFile::initWithName(QStringLiteral("n"), QUrl::fromLocalFile(QDir::tempPath())));
    EXPECT_FALSE(WXLWexelFile::initWithFileURL(QUrl(QStringLiteral("http://h/notes.txt"))));
}

} // namespace

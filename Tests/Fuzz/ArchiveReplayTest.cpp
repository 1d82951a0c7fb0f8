#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "ArchiveProperties.h"

using namespace wexel;

namespace {

/// Checks every file of a folder and every way to cut it short; returns how many files there were.
int replay(const char *folder)
{
    const QDir inputs(QStringLiteral(FUZZ_FOLDER "/") + QLatin1String(folder));
    const QFileInfoList files = inputs.entryInfoList(QDir::Files);
    for (const QFileInfo &info : files) {
        QFile file(info.filePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        for (qsizetype length = bytes.size(); length >= 0; length -= 1 + length / 64)
            EXPECT_STREQ(brokenArchiveProperty(bytes.left(length)), nullptr)
                << qPrintable(info.filePath()) << " cut to " << length;
    }
    return static_cast<int>(files.size());
}

TEST(ArchiveReplay, CorpusHoldsItsProperties)
{
    EXPECT_GT(replay("corpus/archive"), 0);
}

TEST(ArchiveReplay, FormerFailuresHoldTheirProperties)
{
    replay("crashers/archive");
}

} // namespace

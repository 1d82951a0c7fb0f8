#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

#include <QDir>
#include <sys/sysinfo.h>

#include "Platform/FileSystem.h"
#include "Platform/FileTree.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/SystemTool.h"

using namespace wexel;

namespace {

constexpr quint64 megabyte = 1024 * 1024;

// Two readings of a moving quantity agree when some pair of them, taken one right after the other, does.
bool agreeOnce(const std::function<quint64()> &one, const std::function<quint64()> &other, quint64 tolerance)
{
    for (int attempt = 0; attempt < 50; ++attempt) {
        const quint64 a = one();
        const quint64 b = other();
        if (qMax(a, b) - qMin(a, b) <= tolerance)
            return true;
    }
    return false;
}

} // namespace

TEST(ProcessMemoryTest, touchedMemoryIsResident)
{
    const ProcessMemory memory;
    Error error;
    const auto before = memory.residentBytes(error);
    std::vector<char> block(64 * megabyte);
    std::memset(block.data(), 1, block.size());
    const auto after = memory.residentBytes(error);
    ASSERT_TRUE(before && after) << qPrintable(error.description());
    EXPECT_NEAR(static_cast<double>(*after - *before), 64.0 * megabyte, 2.0 * megabyte) << int(block.back());
}

TEST(ProcessMemoryTest, agreesWithOtherReadersOfTheMachine)
{
    const ProcessMemory memory;
    struct sysinfo info {
    };
    ASSERT_EQ(sysinfo(&info), 0);
    EXPECT_EQ(memory.physicalBytes(), std::optional<quint64>(quint64(info.totalram) * info.mem_unit));
    const auto awk = [] {
        const QString sum = QStringLiteral("/^(Active|Inactive|Unevictable|SUnreclaim|KernelStack|PageTables)"
                                           ":/ { s += $2 } END { printf \"%d\", s }");
        return outputOf(QStringLiteral("awk"), {sum, QStringLiteral("/proc/meminfo")}).toULongLong() * 1024;
    };
    Error error;
    EXPECT_TRUE(agreeOnce([&] { return memory.usedBytes(error).value_or(0); }, awk, 16 * megabyte));
}

TEST(ProcessMemoryTest, addsWhatCannotBeReclaimedAndNamesAMissingField)
{
    const FileTree tree;
    tree.write("meminfo",
               "MemTotal:  8000 kB\nMemFree:  1 kB\nActive:  100 kB\nInactive:  20 kB\nActive(anon):  77 kB\n"
               "Unevictable:  3 kB\nSUnreclaim:  400 kB\nKernelStack:  5 kB\nPageTables:  60 kB\n");
    const ProcessMemory memory(tree.path());
    Error error;
    EXPECT_EQ(memory.usedBytes(error), std::optional<quint64>(588 * 1024));
    EXPECT_EQ(memory.physicalBytes(), std::optional<quint64>(8000 * 1024));
    tree.write("meminfo", "Active:  100 kB\nInactive:  kB\n");
    EXPECT_EQ(memory.usedBytes(error), std::nullopt);
    EXPECT_TRUE(error.message.contains(QStringLiteral("\"Inactive: NUMBER kB\"")))
        << qPrintable(error.message);
    EXPECT_EQ(memory.residentBytes(error), std::nullopt);
    EXPECT_EQ(error.code, ENOENT);
    EXPECT_EQ(error.localizedDescription(), QStringLiteral("No such file or directory"));
}

TEST(FileSystemTest, agreesWithDfEvenForAPathThatIsStillToBeMade)
{
    const QString folder = QDir::currentPath();
    Error error;
    const auto size = fileSystemOf(folder + QStringLiteral("/not/made/yet"), error);
    ASSERT_TRUE(size) << qPrintable(error.description());
    const auto df = [&folder](const QString &column) {
        return outputOf(QStringLiteral("df"),
                        {QStringLiteral("-B1"), QStringLiteral("--output=") + column, folder})
            .section(u'\n', -1)
            .toULongLong();
    };
    EXPECT_EQ(size->totalBytes, df(QStringLiteral("size")));
    const auto used = [&] {
        const auto now = fileSystemOf(folder, error);
        return now->totalBytes - now->freeBytes;
    };
    EXPECT_TRUE(agreeOnce(
        used, [&df] { return df(QStringLiteral("used")); }, megabyte));
}

TEST(FileSystemTest, anEmptyPathIsAnError)
{
    Error error;
    EXPECT_FALSE(fileSystemOf(QString(), error));
    EXPECT_EQ(error.domain, QStringLiteral("POSIXErrorDomain"));
    EXPECT_EQ(error.code, ENOENT);
}

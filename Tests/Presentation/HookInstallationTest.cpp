#include <gtest/gtest.h>

#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>

#include "Business/HistoryKeys.h"
#include "Business/TouchRecord.h"
#include "Support/Histories.h"

using namespace wexel;

namespace {

/// What a host leaves that loads the library by hand and is tapped once, see LateHost.cpp.
std::vector<std::shared_ptr<TouchRecord>> tapsOfHost(const QString &mode)
{
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    EXPECT_EQ(QProcess::execute(QStringLiteral(LATE_HOST), {QStringLiteral(WEXEL_LIBRARY), mode}), 0);
    QDirIterator files(data.path(), {QStringLiteral("wexel.defaults")}, QDir::Files,
                       QDirIterator::Subdirectories);
    const WXLAppRepository repository(makeUserDefaults(files.next(), [](auto, auto) {}));
    return storedRecordsOf<TouchRecord>(repository, kUserEventReportKey);
}

} // namespace

TEST(HookInstallationTest, theHookInstallsItselfWhenTheLibraryIsLoadedLate)
{
    EXPECT_EQ(tapsOfHost(QStringLiteral("late")).size(), 1U);
}

TEST(HookInstallationTest, everyApplicationWithWindowsGetsAHook)
{
    const auto taps = tapsOfHost(QStringLiteral("anew"));
    ASSERT_EQ(taps.size(), 1U);
    EXPECT_EQ(taps.front()->className, QStringLiteral("QRasterWindow"));
    EXPECT_EQ(taps.front()->viewController, QStringLiteral("QRasterWindow"));
}

#include "Platform/Bundle.h"

#include <gtest/gtest.h>

#include "Platform/MovedTree.h"
#include <QFileInfo>

using namespace wexel;

namespace {

QByteArray plistWithIdentifier(const QByteArray &identifier)
{
    return "<plist><dict><key>CFBundleIdentifier</key><string>" + identifier + "</string></dict></plist>";
}

} // namespace

TEST_F(MovedTree, aLibraryFindsItsOwnBundleAndTheHostItsOwn)
{
    copy(PROBE_WITH_LIBRARY, "opt/bin/cafe");
    copy(PROBE_LIBRARY, "opt/" + libraryFolder() + "/libBundleProbe.so");
    tree.write("opt/share/wexel/Info.plist", plistWithIdentifier("org.wexel.Wexel"));
    tree.write("opt/share/cafe/Info.plist", plistWithIdentifier("com.example.Cafe"));
    const QStringList lines = run("opt/bin/cafe");
    EXPECT_EQ(lines.value(0), QFileInfo(tree.path("opt/share/wexel")).canonicalFilePath());
    EXPECT_EQ(lines.value(1), tree.path("opt/share/cafe"));
    EXPECT_EQ(lines.value(2), QStringLiteral("com.example.Cafe"));
}

TEST_F(MovedTree, aProgramWithTheCodeLinkedInFindsTheBundleFromItself)
{
    copy(PROBE_LINKED_IN, "opt/bin/cafe");
    tree.write("opt/share/wexel/Info.plist", plistWithIdentifier("org.wexel.Wexel"));
    tree.write("opt/share/cafe/Info.plist", plistWithIdentifier("com.example.Shared"));
    tree.write("opt/bin/Info.plist", plistWithIdentifier("com.example.Beside"));
    const QStringList lines = run("opt/bin/cafe");
    EXPECT_EQ(lines.value(0), QFileInfo(tree.path("opt/share/wexel")).canonicalFilePath());
    EXPECT_EQ(lines.value(2), QStringLiteral("com.example.Beside"));
}

TEST_F(MovedTree, withoutAnIdentifierTheApplicationsNameStandsIn)
{
    copy(PROBE_LINKED_IN, "bin/cafe");
    EXPECT_EQ(run("bin/cafe").value(2), QStringLiteral("com.example.tests.Probe"));
    tree.write("bin/Info.plist", "<plist><dict><key>oops</dict></plist>");
    EXPECT_EQ(run("bin/cafe").value(2), QStringLiteral("com.example.tests.Probe"));
}

TEST(BundleTest, triesTheFilesInOrder)
{
    EXPECT_EQ(Bundle::candidatesForExecutable(QStringLiteral("/opt/cafe/bin/cafe")),
              QStringList({QStringLiteral(":/Info.plist"), QStringLiteral("/opt/cafe/bin/Info.plist"),
                           QStringLiteral("/opt/cafe/share/cafe/Info.plist")}));
    EXPECT_EQ(Bundle::candidatesForObject(QStringLiteral("/opt/lib/x86_64-linux-gnu/libWexel.so.1")),
              QStringList({QStringLiteral("/opt/lib/share/wexel/Info.plist"),
                           QStringLiteral("/opt/share/wexel/Info.plist")}));
}

TEST(BundleTest, aMalformedFileCostsOneLogLineAndActsAsEmpty)
{
    const FileTree tree;
    tree.write("Info.plist", "<plist><dict><key>A</key><integer>x</integer></dict></plist>");
    testing::internal::CaptureStderr();
    const Bundle bundle(QStringLiteral("application"), {tree.path("missing"), tree.path("Info.plist")});
    const QString logged = QString::fromStdString(testing::internal::GetCapturedStderr());
    EXPECT_TRUE(bundle.infoDictionary().isEmpty());
    EXPECT_FALSE(bundle.objectForInfoDictionaryKey(QStringLiteral("A")).isValid());
    EXPECT_EQ(bundle.path(), tree.path());
    EXPECT_EQ(logged.count(u'\n'), 1) << qPrintable(logged);
    EXPECT_TRUE(logged.contains(tree.path("Info.plist:1: key \"A\": expected an integer")))
        << qPrintable(logged);
}

TEST(BundleTest, reversesTheOrganisationDomain)
{
    EXPECT_EQ(Bundle::reversedIdentifier(QStringLiteral("example.co.uk"), QStringLiteral("Cafe")),
              QStringLiteral("uk.co.example.Cafe"));
    EXPECT_EQ(Bundle::reversedIdentifier(QString(), QStringLiteral("Cafe")), QStringLiteral("Cafe"));
}

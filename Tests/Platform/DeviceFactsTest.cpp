#include "Platform/DeviceFacts.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTimeZone>

#include "Platform/MovedTree.h"
#include "Platform/SystemTool.h"

using namespace wexel;

TEST(DeviceFactsTest, agreeWithTheSystemsOwnTools)
{
    const auto facts = makeDeviceFacts();
    EXPECT_EQ(facts->hardwareModel(), outputOf(QStringLiteral("uname"), {QStringLiteral("-m")}));
    const QString release = outputOf(
        QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral(". /etc/os-release; echo $VERSION_ID")});
    EXPECT_EQ(facts->systemVersion(),
              release.isEmpty() ? outputOf(QStringLiteral("uname"), {QStringLiteral("-r")}) : release);
    const QTimeZone zone(facts->timeZoneName().toUtf8());
    const int offset = zone.offsetFromUtc(QDateTime::currentDateTime());
    EXPECT_EQ(QTime(0, 0).addSecs(qAbs(offset)).toString(QStringLiteral("hhmm")),
              outputOf(QStringLiteral("date"), {QStringLiteral("+%z")}).mid(1));
}

TEST(DeviceFactsTest, theHomeFolderAndTheMemoryCanBeMeasured)
{
    const auto facts = makeDeviceFacts();
    Error error;
    EXPECT_TRUE(facts->residentBytes(error) && facts->usedBytes(error) && facts->physicalBytes());
    EXPECT_TRUE(facts->fileSystem(QDir::homePath(), error));
}

TEST_F(MovedTree, theScreenIsCountedInNativePixels)
{
    copy(PROBE_LINKED_IN, "bin/cafe");
    QProcessEnvironment scaled;
    scaled.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    EXPECT_EQ(run("bin/cafe").value(3), QStringLiteral("800x800 3"));
    EXPECT_EQ(run("bin/cafe", {}, scaled).value(3), QStringLiteral("800x800 3"));
    tree.write("screens.json", R"({"screens": [{"name": "laptop", "width": 1366, "height": 768}]})");
    for (const char *factor : {"1.25", "1.5", "1.75"}) {
        QProcessEnvironment fractional;
        fractional.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(factor));
        fractional.insert(QStringLiteral("QT_QPA_PLATFORM"),
                          QStringLiteral("offscreen:configfile=") + tree.path("screens.json"));
        EXPECT_EQ(run("bin/cafe", {}, fractional).value(3), QStringLiteral("1366x768 3")) << factor;
    }
    EXPECT_EQ(run("bin/cafe", {QStringLiteral("--no-gui")}).value(3), QStringLiteral("0x0 0"));
}

TEST_F(MovedTree, theLocaleIsTheUsersAndAbsentForC)
{
    copy(PROBE_LINKED_IN, "bin/cafe");
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    EXPECT_EQ(run("bin/cafe", {}, environment).value(4), QStringLiteral("none"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_AT.UTF-8"));
    EXPECT_EQ(run("bin/cafe", {}, environment).value(4), QStringLiteral("de_AT"));
}

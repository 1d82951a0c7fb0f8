#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTemporaryDir>

/// Every test program has a home folder and an application identity of its own, so that no run sees the files of
/// another or of the user.
int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + QStringLiteral("/data")).toUtf8());
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/config")).toUtf8());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("WexelTests"));
    QGuiApplication::setOrganizationDomain(QStringLiteral("tests.wexel.example"));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

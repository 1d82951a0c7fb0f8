#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

/// As Support/main.cpp, for tests that need Qt Widgets and Qt Quick: windows that nobody sees, drawn in software.
int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

namespace {

QtMessageHandler before;

/// What the engine complains about in a screen is a fault of the test in which it does.
void failOnComplaints(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message.contains(QStringLiteral("qrc:/wexel/")))
        ADD_FAILURE() << qPrintable(message);
    before(type, context, message);
}

} // namespace

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
    before = qInstallMessageHandler(failOnComplaints);
    return RUN_ALL_TESTS();
}

#pragma once

#include <gtest/gtest.h>

#include <functional>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTemporaryDir>

/// Handles events until the condition holds; false when it does not within half a minute.
inline bool waitUntil(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(30'000);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
    return condition();
}

/// A little Qt Quick application: documents in a folder, one of them loaded as the window.
class QuickHost
{
public:
    /// A document of the application's own, next to the main one.
    void addDocument(const char *name, const QByteArray &body) const
    {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("import QtQuick\nimport QtQuick.Controls.Basic\nimport QtQuick.Layouts\n" + body);
    }
    /// Shows Main.qml and waits for its window; null when it does not load.
    QQuickWindow *show(const QByteArray &body)
    {
        addDocument("Main.qml", body);
        engine.load(QUrl::fromLocalFile(folder.filePath(QStringLiteral("Main.qml"))));
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
        EXPECT_TRUE(window != nullptr && waitUntil([this] { return window->isExposed(); }));
        return window;
    }
    [[nodiscard]] QObject *named(const char *objectName) const
    {
        return window->findChild<QObject *>(QString::fromUtf8(objectName));
    }

    QTemporaryDir folder;
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;
};

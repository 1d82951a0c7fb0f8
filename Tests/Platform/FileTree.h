#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

/// A folder of files that looks like a part of /sys, /proc or an install prefix; gone with the object.
class FileTree
{
public:
    [[nodiscard]] QString path(const char *relative = "") const
    {
        return m_folder.filePath(QString::fromUtf8(relative));
    }

    void write(const char *relative, const QByteArray &content) const
    {
        makeFolder(QFileInfo(path(relative)).path());
        QFile file(path(relative));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(file.errorString());
        ASSERT_EQ(file.write(content), content.size());
    }
    static void makeFolder(const QString &folder) { ASSERT_TRUE(QDir().mkpath(folder)); }

private:
    QTemporaryDir m_folder;
};

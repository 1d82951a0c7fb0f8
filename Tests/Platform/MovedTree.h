#pragma once

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include "Platform/FileTree.h"

/// An install prefix in a place of its own, with one of the probe programs copied into it.
class MovedTree : public testing::Test
{
protected:
    void copy(const char *from, const char *to) const
    {
        FileTree::makeFolder(QFileInfo(tree.path(to)).path());
        ASSERT_TRUE(QFile::copy(QString::fromUtf8(from), tree.path(to)));
    }
    /// The lines that the probe prints, run from another folder.
    [[nodiscard]] QStringList run(const char *program, const QStringList &arguments = {},
                                  const QProcessEnvironment &changes = {}) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(changes);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(QStringLiteral("/"));
        process.start(tree.path(program), arguments);
        EXPECT_TRUE(process.waitForFinished()) << qPrintable(process.errorString());
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
        return QString::fromUtf8(process.readAllStandardOutput()).split(u'\n');
    }
    /// The library's folder below bin's parent, as the build lays it out: "lib" or "lib/TRIPLET".
    static QByteArray libraryFolder()
    {
        const QDir prefix(QFileInfo(QStringLiteral(PROBE_WITH_LIBRARY)).path() + QStringLiteral("/.."));
        return prefix.relativeFilePath(QFileInfo(QStringLiteral(PROBE_LIBRARY)).path()).toUtf8();
    }

    FileTree tree;
};

#pragma once

#include <gtest/gtest.h>

#include <QProcess>

/// What one of the system's own tools prints, without blanks around it.
inline QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << qPrintable(program);
    return QString::fromUtf8(process.readAll()).trimmed();
}

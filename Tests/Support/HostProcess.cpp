#include "Support/HostProcess.h"

#include <gtest/gtest.h>

#include "Support/Wait.h"

namespace wexel {

HostProcess::HostProcess(const QString &home, const QString &program, const QStringList &arguments,
                         const QProcessEnvironment &extra)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home);
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dataFolder(home));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/config"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    environment.insert(extra);
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    QObject::connect(&m_process, &QProcess::readyRead, &m_process,
                     [this] { m_output += m_process.readAll(); });
    m_process.start(program, arguments);
    EXPECT_TRUE(m_process.waitForStarted()) << qPrintable(m_process.errorString());
}

HostProcess::~HostProcess()
{
    kill();
}

bool HostProcess::waitForOutput(const QByteArray &text)
{
    return spinUntil([&] { return m_output.contains(text) || m_process.state() == QProcess::NotRunning; })
        && m_output.contains(text);
}

bool HostProcess::waitForOutput(qsizetype bytes, const QByteArray &orText)
{
    return spinUntil([&] { return m_output.size() >= bytes || m_output.contains(orText); });
}

bool HostProcess::waitForEnd()
{
    const auto hasEnded = [this] { return m_process.state() == QProcess::NotRunning; };
    for (qsizetype printed = -1; printed < m_output.size();) {
        printed = m_output.size();
        if (spinUntil([&] { return hasEnded() || m_output.size() > printed; }) && hasEnded())
            return true;
    }
    return false;
}

void HostProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool HostProcess::leftCleanly() const
{
    return m_process.state() == QProcess::NotRunning && m_process.exitStatus() == QProcess::NormalExit
        && m_process.exitCode() == 0;
}

QString HostProcess::dataFolder(const QString &home)
{
    return home + QStringLiteral("/data");
}

} // namespace wexel

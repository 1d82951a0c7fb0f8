#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace wexel {

/// A host application with a home folder of its own, and all that it prints. Needs the test's event loop, so that a
/// server of the test can answer meanwhile. Killed when it goes out of scope.
class HostProcess
{
public:
    /// \param extra added to the environment of the test
    HostProcess(const QString &home, const QString &program, const QStringList &arguments,
                const QProcessEnvironment &extra = {});
    ~HostProcess();
    HostProcess(const HostProcess &) = delete;
    HostProcess &operator=(const HostProcess &) = delete;

    /// Standard output and error output until now.
    [[nodiscard]] const QByteArray &output() const { return m_output; }
    /// False when the text has not come before the deadline or the end of the program.
    [[nodiscard]] bool waitForOutput(const QByteArray &text);
    /// Waits for that much output, or for that text if it comes sooner.
    [[nodiscard]] bool waitForOutput(qsizetype bytes, const QByteArray &orText);
    /// False when it still runs and has printed nothing for as long as the deadline.
    [[nodiscard]] bool waitForEnd();
    /// Ends it in the middle of whatever it does.
    void kill();
    /// True when it left by itself, without a crash and with status 0.
    [[nodiscard]] bool leftCleanly() const;

    /// The folder below which Qt puts the data of a host in that home.
    [[nodiscard]] static QString dataFolder(const QString &home);

private:
    QProcess m_process;
    QByteArray m_output;
};

} // namespace wexel

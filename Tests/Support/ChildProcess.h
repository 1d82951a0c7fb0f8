#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace wexel {

/// A program started by posix_spawn, with its standard output at hand. QProcess forks in a way after which
/// ThreadSanitizer no longer sees this process's locks.
class ChildProcess
{
public:
    ChildProcess(const QString &program, const QStringList &arguments);
    /// Kills what still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    /// Blocks until the program has printed a line or ended; without the line's end.
    [[nodiscard]] QByteArray readLine() const;
    /// Blocks until the program closes its output.
    [[nodiscard]] QByteArray readAll() const;
    void signal(int number) const;
    /// Blocks until the program has ended. \return its exit status, or -1 when a signal ended it
    int wait();

private:
    pid_t m_pid = -1;
    int m_output = -1;
};

} // namespace wexel

#include "Support/ChildProcess.h"

#include <csignal>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace wexel {

ChildProcess::ChildProcess(const QString &program, const QStringList &arguments)
{
    int output[2];
    EXPECT_EQ(pipe2(output, O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    std::vector<QByteArray> texts{program.toUtf8()};
    for (const QString &argument : arguments)
        texts.push_back(argument.toUtf8());
    std::vector<char *> argv;
    for (QByteArray &text : texts)
        argv.push_back(text.data());
    argv.push_back(nullptr);
    EXPECT_EQ(posix_spawnp(&m_pid, argv[0], &actions, nullptr, argv.data(), environ), 0)
        << texts[0].toStdString();
    posix_spawn_file_actions_destroy(&actions);
    close(output[1]);
    m_output = output[0];
}

ChildProcess::~ChildProcess()
{
    signal(SIGKILL);
    wait();
    close(m_output);
}

QByteArray ChildProcess::readLine() const
{
    QByteArray line;
    char c = 0;
    while (read(m_output, &c, 1) == 1 && c != '\n')
        line += c;
    return line;
}

QByteArray ChildProcess::readAll() const
{
    QByteArray all;
    char block[4096];
    for (ssize_t size = read(m_output, block, sizeof block); size > 0;
         size = read(m_output, block, sizeof block))
        all.append(block, size);
    return all;
}

void ChildProcess::signal(int number) const
{
    if (m_pid > 0)
        ::kill(m_pid, number);
}

int ChildProcess::wait()
{
    int status = 0;
    if (m_pid > 0)
        waitpid(m_pid, &status, 0);
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace wexel

#include "Support/Program.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

TemporaryFolder::TemporaryFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "wexel-receiver-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("No temporary folder");
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

Program::Program(const std::vector<std::string> &command, Output output)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("No pipe");
    std::vector<char *> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string &word : command)
        arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    m_pid = ::fork();
    if (m_pid == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        if (output == Output::Both)
            ::dup2(ends[1], STDERR_FILENO);
        // The receiver's own, whatever the test program runs with. The child has one thread.
        // NOLINTNEXTLINE(concurrency-mt-unsafe)
        ::setenv("TSAN_OPTIONS", "suppressions=" WEXEL_TSAN_SUPPRESSIONS, 1);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    m_output = ends[0];
}

Program::~Program()
{
    if (m_pid > 0) {
        signal(SIGKILL);
        wait();
    }
    ::close(m_output);
}

std::string Program::readLine()
{
    std::string line;
    for (char c = 0; ::read(m_output, &c, 1) == 1 && c != '\n';)
        line += c;
    return line;
}

std::string Program::readAll()
{
    std::string text;
    char block[4096];
    for (ssize_t count = 0; (count = ::read(m_output, block, sizeof block)) > 0;)
        text.append(block, static_cast<std::size_t>(count));
    return text;
}

void Program::signal(int number) const
{
    ::kill(m_pid, number);
}

int Program::wait()
{
    int status = 0;
    ::waitpid(m_pid, &status, 0);
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

Result runReceiver(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), WEXEL_RECEIVER);
    Program program(arguments, Program::Output::Both);
    std::string output = program.readAll();
    return {program.wait(), std::move(output)};
}

std::string readFile(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::filesystem::path &path, const std::string &bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

/// A folder that goes with its owner.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    const std::filesystem::path &path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// A child process whose output (standard output and, if asked for, error output) is read.
class Program
{
public:
    enum class Output { Standard, Both };

    explicit Program(const std::vector<std::string> &command, Output output = Output::Standard);
    ~Program(); ///< kills it if it still runs
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    /// The next line without its end; empty at the end of the output.
    std::string readLine();
    std::string readAll();
    void signal(int number) const;
    /// The exit code, or minus the signal that ended it.
    int wait();

private:
    pid_t m_pid = -1;
    int m_output = -1;
};

struct Result {
    int code;
    std::string output;
};

/// Runs wexel-receiver to its end, with both outputs read.
Result runReceiver(std::vector<std::string> arguments);

std::string readFile(const std::filesystem::path &path);
void writeFile(const std::filesystem::path &path, const std::string &bytes);

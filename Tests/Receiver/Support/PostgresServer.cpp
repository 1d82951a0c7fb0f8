#include "Support/PostgresServer.h"

#include <iostream>
#include <stdexcept>
#include <unistd.h>

namespace {

std::string firstLine(const std::string &text)
{
    return text.substr(0, text.find('\n'));
}

/// Where the newest of the installed versions keeps its programs, which are not on the path.
std::filesystem::path serverPrograms()
{
    Program list({"/bin/sh", "-c", "ls -d /usr/lib/postgresql/*/bin | sort -rV"});
    std::string found = firstLine(list.readAll());
    if (found.empty())
        throw std::runtime_error("PostgreSQL is not installed");
    return found;
}

} // namespace

PostgresServer &PostgresServer::instance()
{
    static PostgresServer server;
    return server;
}

PostgresServer::PostgresServer() : m_programs(serverPrograms())
{
    const std::string data = (m_folder.path() / "data").string();
    const std::string socket = m_folder.path().string();
    // The server refuses to run as root.
    if (::geteuid() == 0)
        tool({"chown", "postgres", socket}, false);
    tool({m_programs / "initdb", "-D", data, "-A", "trust", "-U", "wexel", "-E", "UTF8", "--no-sync"});
    tool({m_programs / "pg_ctl", "-D", data, "-w", "-l", data + "/log", "-o",
          "-c listen_addresses= -c fsync=off -c unix_socket_directories=" + socket, "start"});
}

PostgresServer::~PostgresServer()
{
    try {
        tool({m_programs / "pg_ctl", "-D", m_folder.path() / "data", "-m", "immediate", "stop"});
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
    }
}

std::string PostgresServer::newDatabase()
{
    const std::string name = "test" + std::to_string(++m_databases);
    run("CREATE DATABASE " + name);
    return "postgresql:///" + name + "?user=wexel&host=" + m_folder.path().string();
}

std::string PostgresServer::run(const std::string &sql) const
{
    return tool({m_programs / "psql", "-h", m_folder.path(), "-U", "wexel", "-d", "postgres", "-qAtc", sql},
                false);
}

std::string PostgresServer::tool(const std::vector<std::string> &command, bool asOwner) const
{
    std::vector<std::string> words;
    if (asOwner && ::geteuid() == 0)
        words = {"runuser", "-u", "postgres", "--"};
    words.insert(words.end(), command.begin(), command.end());
    // The server outlives its starter and must not hold the pipe: what it says goes to its log.
    const std::string output = (m_folder.path() / "output").string();
    words.insert(words.begin(), {"/bin/sh", "-c", "exec \"$0\" \"$@\" >" + output + " 2>&1 </dev/null"});
    Program program(words);
    const int code = program.wait();
    std::string text = readFile(output);
    if (code != 0)
        throw std::runtime_error(command.front() + " failed: " + text);
    return text;
}

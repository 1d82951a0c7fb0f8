#pragma once

#include "Support/Program.h"

/// A PostgreSQL server of the tests' own, in a temporary folder and reached by a socket there. It ends with the program.
class PostgresServer
{
public:
    /// The one server of this program, started when it is first asked for.
    static PostgresServer &instance();

    /// The address of a new and empty database.
    std::string newDatabase();
    /// Runs \a sql and returns what it prints.
    std::string run(const std::string &sql) const;

    PostgresServer(const PostgresServer &) = delete;
    PostgresServer &operator=(const PostgresServer &) = delete;

private:
    PostgresServer();
    ~PostgresServer();

    std::string tool(const std::vector<std::string> &command, bool asOwner = true) const;

    TemporaryFolder m_folder;
    std::filesystem::path m_programs;
    int m_databases = 0;
};

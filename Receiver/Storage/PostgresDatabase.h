#pragma once

#include "Storage/Database.h"
#include "Storage/SessionPool.h"

#include <chrono>

namespace wexel::receiver {

/// How long a server waits for a database that is stuck. Commands wait for locks and statements as long as it takes.
struct DatabasePatience {
    std::chrono::milliseconds session{10000}; ///< until others give one back
    std::chrono::milliseconds lock{5000}; ///< that another transaction holds
    std::chrono::milliseconds statement{60000};
};

/// A PostgreSQL database, which any number of processes may share.
class PostgresDatabase : public Database
{
public:
    /// For the address, see connectionOptions(). Throws StorageError, or UsageError for the address.
    PostgresDatabase(const std::string &address, Mode mode, DatabasePatience patience = {});

    void write(const Work &work) override;
    void read(const Work &work) override;
    void readSnapshot(const Work &work) override;

private:
    void prepare(Mode mode);
    void run(const std::string &opening, const Work &work, int attempts);

    SessionPool m_pool;
    bool m_isReadOnly;
};

} // namespace wexel::receiver

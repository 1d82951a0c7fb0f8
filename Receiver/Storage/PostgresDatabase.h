#pragma once

#include "Storage/Database.h"
#include "Storage/SessionPool.h"

namespace wexel::receiver {

/// A PostgreSQL database, which any number of processes may share.
class PostgresDatabase : public Database
{
public:
    /// For the address, see connectionOptions(). Throws StorageError, or UsageError for the address.
    PostgresDatabase(const std::string &address, Mode mode);

    void write(const Work &work) override;
    void read(const Work &work) override;
    void readSnapshot(const Work &work) override;

private:
    void run(const std::string &opening, const Work &work, int attempts);

    SessionPool m_pool;
    bool m_isReadOnly;
};

} // namespace wexel::receiver

#pragma once

#include "Storage/Database.h"
#include "Storage/FileStore.h"

namespace wexel::receiver {

/// Files in the database, in pieces. The database must outlive it. Only for PostgreSQL, which can put off the disk.
class DatabaseFileStore : public FileStore
{
public:
    explicit DatabaseFileStore(Database &database) : m_database(database) { }

    std::unique_ptr<IncomingFile> receive(const std::string &location) override;
    std::unique_ptr<std::istream> open(const std::string &location, std::uint64_t size) const override;
    void remove(const std::string &location) override;
    std::size_t sweep(std::int64_t before, const UnknownAmong &unknownAmong) override;
    std::filesystem::path pathOf(const std::string &) const override { return {}; }

private:
    Database &m_database;
};

} // namespace wexel::receiver

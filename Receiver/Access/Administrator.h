#pragma once

#include "Storage/Database.h"

#include <string>

namespace wexel::receiver {

/// The one who may use the dashboard: a password, kept as its slow hash. Every thread may use it. Throws StorageError.
class Administrator
{
public:
    explicit Administrator(Database &database) : m_database(database) { }

    bool hasPassword();
    /// Sets the first password. False, with nothing changed, if there is one by now: another receiver may have been faster.
    bool setFirstPassword(const std::string &password);
    /// Sets another password and ends every session.
    void setPassword(const std::string &password);
    /// The password's; empty if there is none.
    std::string hash();

private:
    Database &m_database;
};

} // namespace wexel::receiver

#pragma once

#include <Poco/Data/Session.h>

namespace wexel::receiver {

/// Which database speaks.
enum class Dialect { Sqlite, PostgreSql };

/// Brings the database to the schema of this version, step by step. To be called inside a transaction that keeps every
/// other process out of the schema. Throws StorageError if a newer version wrote it; its text goes on from the database's
/// name, as do all here.
void migrate(Poco::Data::Session &session, Dialect dialect);

/// Makes the schema if there is none; else the same as checkSchema(). For the transaction, see migrate().
void fillSchema(Poco::Data::Session &session, Dialect dialect);

/// Throws StorageError unless the database has the schema of this version.
void checkSchema(Poco::Data::Session &session, Dialect dialect);

} // namespace wexel::receiver

#pragma once

#include <optional>

#include <QMap>
#include <QString>

#include "Platform/SqliteDatabase.h"
#include "Platform/StoredValue.h"

namespace wexel {

/// Changes to write together; nothing in the place of a value removes the entry.
using StoreChanges = QMap<QString, std::optional<StoredValue>>;

/// The store's rows. A large byte buffer lies in pieces, of which only those that changed are written again: a long
/// history that grows at its end costs its end. Not thread-safe.
class StoreTable
{
public:
    explicit StoreTable(SqliteDatabase &database) : m_database(database) { }

    /// SQL that makes the tables.
    static const char *const creation;

    /// The value under the key; nothing when there is none, or when it is not complete.
    [[nodiscard]] std::optional<StoredValue> read(const QString &key);
    /// Writes all changes, within a transaction of the caller. False on failure.
    [[nodiscard]] bool write(const StoreChanges &changes);

private:
    [[nodiscard]] bool writeValue(const QString &key, const StoredValue &value);
    [[nodiscard]] bool writePieces(const QString &key, const QByteArray &bytes);
    [[nodiscard]] bool writeEntry(const QString &key, const StoredValue &value);
    [[nodiscard]] bool removeEntry(const QString &key);
    [[nodiscard]] bool removePieces(const QString &key, int first);

    SqliteDatabase &m_database;
};

} // namespace wexel

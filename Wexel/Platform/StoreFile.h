#pragma once

#include <optional>

#include <QString>

#include "Platform/SqliteDatabase.h"
#include "Platform/StoreTable.h"

namespace wexel {

/// The store's file: an SQLite database. Opened by the first call that needs it, and again after
/// a failure or when the file was moved or deleted. Not thread-safe; other instances and processes may have
/// the same file open.
class StoreFile
{
public:
    explicit StoreFile(QString path);
    StoreFile(const StoreFile &) = delete;
    StoreFile &operator=(const StoreFile &) = delete;

    /// The value under the key; nothing when there is none or the file cannot be read.
    [[nodiscard]] std::optional<StoredValue> read(const QString &key);
    /// Writes all changes or none. What it has written is not lost any more when the process is killed.
    /// \return what went wrong; nothing on success
    [[nodiscard]] std::optional<QString> write(const StoreChanges &changes);

private:
    enum class State { Ready, Unusable, Damaged };

    bool ensureOpen();
    State open();
    State check();
    State createTable();
    State startAfresh();
    State failure();
    State damage(const QString &reason);
    void makeRoom() const;
    bool moveAside() const;
    bool writeAll(const StoreChanges &changes);

    const QString m_path;
    SqliteDatabase m_database;
    QString m_problem; ///< of the last failure
};

} // namespace wexel

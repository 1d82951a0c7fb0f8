#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace wexel {

/// One prepared statement with its parameters, counted from 1. Must not outlive its database; invalid when it
/// could not be prepared: every step of it then fails.
class SqliteStatement
{
public:
    explicit SqliteStatement(sqlite3_stmt *statement) : m_statement(statement) { }

    void bind(int parameter, const QString &text);
    void bind(int parameter, const QByteArray &bytes);
    void bind(int parameter, int number);

    /// True while there is a row to read, columns counted from 0.
    [[nodiscard]] bool nextRow();
    [[nodiscard]] int number(int column) const;
    [[nodiscard]] QByteArray bytes(int column) const;

    /// Runs to the end and makes the statement ready to be bound again. False on failure.
    [[nodiscard]] bool execute();

private:
    struct Finalize {
        void operator()(sqlite3_stmt *statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// A connection to one SQLite database. Not thread-safe. Every function may be called while it is closed, and
/// fails.
class SqliteDatabase
{
public:
    enum class Mode {
        ReadWrite, ///< creates the file; falls back to reading where it may not be written
        ReadUnchanging, ///< for a file on a disk that nobody can write to
    };
    [[nodiscard]] bool open(const QString &path, Mode mode);
    void close() { m_database.reset(); }
    [[nodiscard]] bool isOpen() const { return m_database != nullptr; }

    [[nodiscard]] bool execute(const char *sql);
    /// Ends a transaction that failed; a failure may have ended it already.
    void rollBack() { static_cast<void>(execute("ROLLBACK")); }
    /// First column of the first row.
    [[nodiscard]] std::optional<QByteArray> firstValue(const char *sql);
    [[nodiscard]] SqliteStatement prepare(const char *sql);

    /// Of the last failure.
    [[nodiscard]] QString errorText() const;
    /// True when the last failure says that the file is damaged or no database at all.
    [[nodiscard]] bool foundDamage() const;
    /// True when the last failure says that a file cannot be written or made, or that the disk is full.
    [[nodiscard]] bool foundUnwritable() const;
    /// True when the open file was opened for reading only.
    [[nodiscard]] bool isReadOnly() const;
    /// True when the open file no longer has the name it was opened under.
    [[nodiscard]] bool hasMoved() const;
    /// Closes without a trace on disk, where `close` would tidy up files that now belong to another database.
    void abandon();

private:
    struct Close {
        void operator()(sqlite3 *database) const;
    };
    std::unique_ptr<sqlite3, Close> m_database;
};

} // namespace wexel

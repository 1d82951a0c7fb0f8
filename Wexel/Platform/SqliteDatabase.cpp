#include "Platform/SqliteDatabase.h"

#include <QUrl>

#include <sqlite3.h>

namespace wexel {

namespace {
/// How long to wait for another process's write, which takes milliseconds.
constexpr int busyMilliseconds = 2000;
} // namespace

void SqliteStatement::Finalize::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

void SqliteStatement::bind(int parameter, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(m_statement.get(), parameter, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void SqliteStatement::bind(int parameter, const QByteArray &bytes)
{
    sqlite3_bind_blob64(m_statement.get(), parameter, bytes.constData(), sqlite3_uint64(bytes.size()),
                        SQLITE_TRANSIENT);
}

void SqliteStatement::bind(int parameter, int number)
{
    sqlite3_bind_int(m_statement.get(), parameter, number);
}

bool SqliteStatement::nextRow()
{
    return sqlite3_step(m_statement.get()) == SQLITE_ROW;
}

int SqliteStatement::number(int column) const
{
    return sqlite3_column_int(m_statement.get(), column);
}

QByteArray SqliteStatement::bytes(int column) const
{
    const void *bytes = sqlite3_column_blob(m_statement.get(), column);
    return {static_cast<const char *>(bytes), sqlite3_column_bytes(m_statement.get(), column)};
}

bool SqliteStatement::execute()
{
    const bool done = sqlite3_step(m_statement.get()) == SQLITE_DONE;
    sqlite3_reset(m_statement.get());
    return done;
}

void SqliteDatabase::Close::operator()(sqlite3 *database) const
{
    sqlite3_close_v2(database);
}

bool SqliteDatabase::open(const QString &path, Mode mode)
{
    const QByteArray url = QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded);
    const bool reading = mode == Mode::ReadUnchanging;
    const QByteArray name = reading ? url + "?immutable=1" : url;
    const int access = reading ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    sqlite3 *database = nullptr;
    const int result = sqlite3_open_v2(name.constData(), &database,
                                       access | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
    m_database.reset(database);
    sqlite3_busy_timeout(database, busyMilliseconds);
    return result == SQLITE_OK;
}

bool SqliteDatabase::execute(const char *sql)
{
    return isOpen() && sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::optional<QByteArray> SqliteDatabase::firstValue(const char *sql)
{
    SqliteStatement statement = prepare(sql);
    return statement.nextRow() ? std::optional(statement.bytes(0)) : std::nullopt;
}

SqliteStatement SqliteDatabase::prepare(const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    if (isOpen())
        sqlite3_prepare_v2(m_database.get(), sql, -1, &statement, nullptr);
    return SqliteStatement(statement);
}

QString SqliteDatabase::errorText() const
{
    return QString::fromUtf8(sqlite3_errmsg(m_database.get()));
}

bool SqliteDatabase::foundDamage() const
{
    const int code = sqlite3_errcode(m_database.get());
    return code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
}

bool SqliteDatabase::foundUnwritable() const
{
    const int code = sqlite3_errcode(m_database.get());
    return code == SQLITE_READONLY || code == SQLITE_CANTOPEN || code == SQLITE_IOERR || code == SQLITE_FULL;
}

bool SqliteDatabase::isReadOnly() const
{
    return isOpen() && sqlite3_db_readonly(m_database.get(), "main") == 1;
}

bool SqliteDatabase::hasMoved() const
{
    int moved = 0;
    const int result = sqlite3_file_control(m_database.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return result == SQLITE_OK && moved != 0;
}

void SqliteDatabase::abandon()
{
    sqlite3_db_config(m_database.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    close();
}

} // namespace wexel

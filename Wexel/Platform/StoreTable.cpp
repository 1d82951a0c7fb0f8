#include "Platform/StoreTable.h"

#include <QCryptographicHash>

namespace wexel {

namespace {

constexpr qsizetype largestInOne = 65'536;
constexpr qsizetype pieceSize = 16'384;
constexpr qsizetype digestSize = 16;

// To tell pieces apart, not to keep anybody out.
QByteArray digest(const QByteArray &piece)
{
    return QCryptographicHash::hash(piece, QCryptographicHash::Md5);
}

} // namespace

const char *const StoreTable::creation
    = "CREATE TABLE IF NOT EXISTS entries"
      " (key TEXT PRIMARY KEY, kind INTEGER NOT NULL, content BLOB NOT NULL);"
      "CREATE TABLE IF NOT EXISTS pieces (key TEXT NOT NULL, number INTEGER NOT NULL,"
      " kind INTEGER NOT NULL, content BLOB NOT NULL, PRIMARY KEY (key, number));";

// One statement, so that no other process writes between an entry and its pieces.
std::optional<StoredValue> StoreTable::read(const QString &key)
{
    SqliteStatement select
        = m_database.prepare("SELECT entries.kind, entries.content, pieces.kind, pieces.content FROM entries"
                             " LEFT JOIN pieces ON pieces.key = entries.key"
                             " WHERE entries.key = ? ORDER BY pieces.number");
    select.bind(1, key);
    if (!select.nextRow())
        return {};
    const StoredValue entry{StoredValue::Kind(select.number(0)), select.bytes(1)};
    if (entry.kind != StoredValue::Digests)
        return entry;
    QByteArray whole;
    QByteArray digests;
    do {
        const StoredValue piece{StoredValue::Kind(select.number(2)), select.bytes(3)};
        const QByteArray bytes = piece.toVariant().toByteArray();
        digests += digest(bytes);
        whole += bytes;
    } while (select.nextRow());
    return digests == entry.content ? std::optional(StoredValue{StoredValue::Bytes, whole}) : std::nullopt;
}

bool StoreTable::write(const StoreChanges &changes)
{
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        if (!(*change ? writeValue(change.key(), **change) : removeEntry(change.key())))
            return false;
    }
    return true;
}

bool StoreTable::writeValue(const QString &key, const StoredValue &value)
{
    if (value.kind == StoredValue::Bytes && value.content.size() > largestInOne)
        return writePieces(key, value.content);
    return removePieces(key, 0) && writeEntry(key, value.compressed());
}

bool StoreTable::writePieces(const QString &key, const QByteArray &bytes)
{
    SqliteStatement select = m_database.prepare("SELECT content FROM entries WHERE key = ? AND kind = ?");
    select.bind(1, key);
    select.bind(2, StoredValue::Digests);
    const QByteArray before = select.nextRow() ? select.bytes(0) : QByteArray();
    SqliteStatement replace
        = m_database.prepare("REPLACE INTO pieces (key, number, kind, content) VALUES (?, ?, ?, ?)");
    replace.bind(1, key);
    QByteArray digests;
    int number = 0;
    for (qsizetype offset = 0; offset < bytes.size(); offset += pieceSize, ++number) {
        const QByteArray piece = bytes.mid(offset, pieceSize);
        digests += digest(piece);
        if (digests.right(digestSize) == before.mid(number * digestSize, digestSize))
            continue;
        const StoredValue stored = StoredValue{StoredValue::Bytes, piece}.compressed();
        replace.bind(2, number);
        replace.bind(3, stored.kind);
        replace.bind(4, stored.content);
        if (!replace.execute())
            return false;
    }
    return removePieces(key, number) && writeEntry(key, {StoredValue::Digests, digests});
}

bool StoreTable::writeEntry(const QString &key, const StoredValue &value)
{
    SqliteStatement replace
        = m_database.prepare("REPLACE INTO entries (key, kind, content) VALUES (?, ?, ?)");
    replace.bind(1, key);
    replace.bind(2, value.kind);
    replace.bind(3, value.content);
    return replace.execute();
}

bool StoreTable::removeEntry(const QString &key)
{
    SqliteStatement remove = m_database.prepare("DELETE FROM entries WHERE key = ?");
    remove.bind(1, key);
    return remove.execute() && removePieces(key, 0);
}

bool StoreTable::removePieces(const QString &key, int first)
{
    SqliteStatement remove = m_database.prepare("DELETE FROM pieces WHERE key = ? AND number >= ?");
    remove.bind(1, key);
    remove.bind(2, first);
    return remove.execute();
}

} // namespace wexel

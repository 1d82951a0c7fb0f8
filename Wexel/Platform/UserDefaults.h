#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace wexel {

/// A persistent, typed store of property-list values (booleans, numbers, strings, byte buffers, dates, lists,
/// maps) under text keys, one per host application.
///
/// A value written is readable at once from any thread. Values other than byte buffers are in the file when
/// the call returns, so a killed process never loses them. Byte buffers (the histories, written many times a
/// second) are gathered and written together at most `flushInterval` later. Thread-safe.
///
/// Integers come back as qint64 and lists as QVariantList. Processes of one host that run together share the
/// file: each sees what the others have written, the last write of a key wins.
class UserDefaults
{
public:
    static constexpr std::chrono::milliseconds flushInterval{900};

    virtual ~UserDefaults() = default;

    /// The value as it was stored, or an invalid QVariant.
    [[nodiscard]] virtual QVariant objectForKey(const QString &key) const = 0;
    /// The value when it is a byte buffer; nothing when it is absent or of another type (a text is not
    /// bytes).
    [[nodiscard]] virtual std::optional<QByteArray> dataForKey(const QString &key) const = 0;
    /// Stores a property-list value; an invalid QVariant removes the entry. Other types are refused with a
    /// log line.
    virtual void setObject(const QVariant &value, const QString &key) = 0;
    virtual void removeObjectForKey(const QString &key) = 0;
    /// Writes what is still gathered. Returns when it is in the file.
    virtual void synchronize() = 0;
};

/// Runs `block` once, `delay` from now, on a thread that may wait for the disk. May drop blocks while the
/// process ends.
using RunLater = std::function<void(std::chrono::milliseconds delay, std::function<void()> block)>;

/// The store in one file. Nothing is opened before the first use; while nothing is gathered nothing runs.
///
/// A missing folder is created. A file that is damaged or not such a store is moved aside as "PATH.damaged"
/// and a new store is started. While the file cannot be written, values stay readable in memory and the next
/// write tries again. Each of these is logged once. Whoever owns the store calls `synchronize` when the
/// process ends normally; destroying it does so too. \param path of the file; SQLite keeps two more beside
/// it, named "PATH-wal" and "PATH-shm"
std::shared_ptr<UserDefaults> makeUserDefaults(const QString &path, RunLater runLater);

} // namespace wexel

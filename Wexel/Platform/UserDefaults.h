#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace wexel
{

/// A persistent, typed store of property-list values (booleans, numbers, strings, byte buffers, dates, lists,
/// maps) under text keys, one per host application.
///
/// A value written is readable at once from any thread. Values other than byte buffers are in the file when
/// the call returns, so a killed process never loses them. Byte buffers (the histories, written many times a
/// second) are gathered and written together at most `flushInterval` later. Thread-safe.
class UserDefaults
{
public:
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

} // namespace wexel

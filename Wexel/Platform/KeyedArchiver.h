#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>

#include <Wexel/SecureCoding.h>

#include "Platform/Error.h"

namespace wexel {

/// An archivable object inside a QVariant, beside strings, bytes, booleans, numbers, lists and maps.
using ArchivedObject = std::shared_ptr<SecureCoding>;

/// The keyed fields of one object, while it is written or read.
class Coder
{
public:
    Coder() = default;
    explicit Coder(QVariantMap fields) : m_fields(std::move(fields)) { }

    /// An invalid QVariant stands for an absent field and writes nothing.
    void encodeObject(const QVariant &object, const QString &key);
    void encodeObject(const std::optional<QString> &text, const QString &key);
    void encodeObject(const ArchivedObject &object, const QString &key);

    /// The field under the key, or an invalid QVariant.
    [[nodiscard]] QVariant decodeObject(const QString &key) const;
    /// The field when it is a text, else nothing.
    [[nodiscard]] std::optional<QString> decodeString(const QString &key) const;
    /// The field when it is an object of class T, else null.
    template <typename T>
    [[nodiscard]] std::shared_ptr<T> decodeObjectOf(const QString &key) const
    {
        return std::dynamic_pointer_cast<T>(decodeObject(key).value<ArchivedObject>());
    }

    [[nodiscard]] const QVariantMap &fields() const { return m_fields; }

private:
    QVariantMap m_fields;
};

/// A class that an archive may hold: its name and how to make an object of it from its fields.
struct ArchivableClass {
    QString name;
    /// Null when the fields do not make an object; the archive is then refused.
    std::function<ArchivedObject(const Coder &)> initWithCoder;
    /// Classes derived from this one, which are allowed with it.
    QList<const ArchivableClass *> subclasses = {};
};

/// What a reader lets in. Numbers and booleans are always allowed: they carry no code and no structure.
struct AllowedClasses {
    bool dictionary = false;
    bool data = false;
    bool string = false;
    bool array = false;
    QList<const ArchivableClass *> classes = {};
};

/// Why an archive was refused, or a value left out of it. The messages name the place by its key path and are
/// short and printable, whatever the archive holds.
inline const QString ArchiveErrorDomain = QStringLiteral("WXLErrorDomainArchive");
enum ArchiveErrorCode {
    ArchiveErrorNotArchivable = 1, ///< a value of a type that archives do not hold
    ArchiveErrorCorrupt = 2, ///< not an archive, or a damaged one
    ArchiveErrorNotAllowed = 3, ///< a class or kind of value that the reader does not let in
    ArchiveErrorTooLarge = 4, ///< beyond a limit of KeyedUnarchiver
};

/// Writes a value as CBOR (RFC 8949). An object stands as tag 27 around an array of its class name and a map
/// of its keyed fields. Thread-safe: no state.
class KeyedArchiver
{
public:
    /// Takes texts, byte buffers, booleans, int, uint, qint64, quint64, float, double, QVariantList,
    /// QStringList, QVariantMap and ArchivedObject; integers come back as qint64 (quint64 above its range),
    /// lists of any kind as QVariantList. \param error set when a value cannot be archived (any other type,
    /// or nested too deeply). Such a value is left
    ///        out, the rest is written, so the bytes are usable even then.
    /// \return the bytes; nothing when the root itself cannot be archived or the archive outgrows the
    /// reader's limits
    static std::optional<QByteArray> archivedDataWithRootObject(const QVariant &root,
                                                                std::optional<Error> *error = nullptr);

    /// One value on its way into an archive whose root is an array: written once, used in many archives.
    struct Element {
        QByteArray bytes;
        qsizetype elements = 0; ///< of all lists and maps within it together
    };
    /// As above for one element of the root array.
    static std::optional<Element> archivedElement(const QVariant &value,
                                                  std::optional<Error> *error = nullptr);
    /// The archive of an array. Costs little more than copying the elements' bytes.
    static std::optional<QByteArray> archivedDataWithElements(const std::vector<const Element *> &elements,
                                                              std::optional<Error> *error = nullptr);
};

/// Reads what KeyedArchiver wrote. The input is hostile: truncated, foreign, deep or huge archives are
/// refused with an error, never half read. So are strings and containers of indefinite length, duplicate
/// keys, keys that are not texts, null, tags other than 27 and anything after the root. Thread-safe: no
/// state.
class KeyedUnarchiver
{
public:
    static constexpr qsizetype maximumDepth = 32; ///< lists, maps and objects within each other
    static constexpr qsizetype maximumBytes = 512 * 1024 * 1024;
    static constexpr qsizetype maximumElements = 1'000'000; ///< of all lists and maps together

    /// \return the root value; an invalid QVariant with `error` set when the bytes are refused
    static QVariant unarchivedObjectOfClasses(const AllowedClasses &allowed, const QByteArray &data,
                                              std::optional<Error> *error = nullptr);
};

} // namespace wexel

Q_DECLARE_METATYPE(std::shared_ptr<wexel::SecureCoding>)

#include <limits>

#include <QCborStreamReader>

#include "Platform/KeyPath.h"
#include "Platform/KeyedArchiver.h"

namespace wexel {

namespace {

const ArchivableClass *findClass(const QList<const ArchivableClass *> &classes, const QString &name)
{
    for (const ArchivableClass *candidate : classes) {
        if (candidate->name == name)
            return candidate;
        if (const ArchivableClass *subclass = findClass(candidate->subclasses, name))
            return subclass;
    }
    return nullptr;
}

/// One archive while it is read. Every read function returns an invalid or absent value once an error is set.
class ArchiveReader
{
public:
    ArchiveReader(const AllowedClasses &allowed, const QByteArray &data)
        : m_allowed(allowed)
        , m_size(data.size())
        , m_in(data)
    {
    }

    QVariant readRoot();
    [[nodiscard]] const std::optional<Error> &error() const { return m_error; }

private:
    QVariant readValue();
    QVariant readSigned();
    QVariant readSimple();
    std::optional<QString> readText();
    QVariant readBytes();
    QVariant readList();
    QVariant readObject();
    std::optional<QVariantMap> readMap();
    std::optional<QString> readKey(const QVariantMap &known);

    template <typename T>
    T take(T value);
    bool stringFits();
    std::optional<qsizetype> enterContainer(QCborStreamReader::Type expected, const char *name,
                                            int itemsPerElement);
    bool leaveContainer();
    std::nullopt_t fail(ArchiveErrorCode code, const QString &what);
    std::nullopt_t corrupt(const QString &what);
    QVariant notAllowed(const QString &what);

    /// After an error the reader's own type is that of an earlier value.
    [[nodiscard]] QCborStreamReader::Type type()
    {
        return m_in.lastError() == QCborError::NoError ? m_in.type() : QCborStreamReader::Invalid;
    }
    [[nodiscard]] qsizetype remaining() const { return m_size - m_in.currentOffset(); }

    const AllowedClasses &m_allowed;
    qsizetype m_size;
    QCborStreamReader m_in;
    KeyPath m_path;
    qsizetype m_elements = 0;
    std::optional<Error> m_error;
};

std::nullopt_t ArchiveReader::fail(ArchiveErrorCode code, const QString &what)
{
    if (!m_error)
        m_error = Error{ArchiveErrorDomain, code, QStringLiteral("%1 at %2").arg(what, m_path.text())};
    return std::nullopt;
}

std::nullopt_t ArchiveReader::corrupt(const QString &what)
{
    return fail(ArchiveErrorCorrupt, what);
}

QVariant ArchiveReader::notAllowed(const QString &what)
{
    fail(ArchiveErrorNotAllowed, QStringLiteral("%1 is not allowed").arg(what));
    return {};
}

QVariant ArchiveReader::readRoot()
{
    if (m_size > KeyedUnarchiver::maximumBytes) {
        fail(ArchiveErrorTooLarge, QStringLiteral("%1 bytes, more than an archive may have").arg(m_size));
        return {};
    }
    QVariant root = readValue();
    if (!m_error && remaining() > 0)
        corrupt(QStringLiteral("%1 bytes after the archive").arg(remaining()));
    return m_error ? QVariant() : root;
}

QVariant ArchiveReader::readValue()
{
    switch (type()) {
    case QCborStreamReader::UnsignedInteger: {
        const quint64 number = m_in.toUnsignedInteger();
        const bool isSigned = number <= quint64(std::numeric_limits<qint64>::max());
        return take(isSigned ? QVariant(qint64(number)) : QVariant(number));
    }
    case QCborStreamReader::NegativeInteger:
        return readSigned();
    case QCborStreamReader::Float:
        return take(QVariant(m_in.toFloat()));
    case QCborStreamReader::Double:
        return take(QVariant(m_in.toDouble()));
    case QCborStreamReader::SimpleType:
        return readSimple();
    case QCborStreamReader::String: {
        if (!m_allowed.string)
            return notAllowed(QStringLiteral("a text"));
        const std::optional<QString> text = readText();
        return text ? QVariant(*text) : QVariant();
    }
    case QCborStreamReader::ByteArray:
        return m_allowed.data ? readBytes() : notAllowed(QStringLiteral("a byte buffer"));
    case QCborStreamReader::Array:
        return m_allowed.array ? readList() : notAllowed(QStringLiteral("a list"));
    case QCborStreamReader::Map: {
        if (!m_allowed.dictionary)
            return notAllowed(QStringLiteral("a map"));
        const std::optional<QVariantMap> map = readMap();
        return map ? QVariant(*map) : QVariant();
    }
    case QCborStreamReader::Tag:
        return readObject();
    default:
        corrupt(m_in.lastError() == QCborError::EndOfFile ? QStringLiteral("the archive ends")
                                                          : QStringLiteral("no archived value"));
        return {};
    }
}

template <typename T>
T ArchiveReader::take(T value)
{
    m_in.next();
    return value;
}

QVariant ArchiveReader::readSigned()
{
    // The reader gives the absolute value; 0 stands for 2^64.
    const auto magnitude = quint64(m_in.toNegativeInteger());
    if (magnitude - 1 > quint64(std::numeric_limits<qint64>::max())) {
        corrupt(QStringLiteral("an integer below 64 bits"));
        return {};
    }
    return take(QVariant(-qint64(magnitude - 1) - 1));
}

QVariant ArchiveReader::readSimple()
{
    if (m_in.isBool())
        return take(QVariant(m_in.toBool()));
    corrupt(QStringLiteral("null or another simple value"));
    return {};
}

bool ArchiveReader::stringFits()
{
    if (!m_in.isLengthKnown())
        corrupt(QStringLiteral("a string of indefinite length"));
    else if (m_in.length() > quint64(remaining()))
        corrupt(QStringLiteral("a string longer than the archive"));
    return !m_error;
}

std::optional<QString> ArchiveReader::readText()
{
    if (!stringFits())
        return std::nullopt;
    const auto text = m_in.readString();
    if (text.status != QCborStreamReader::Ok || m_in.readString().status != QCborStreamReader::EndOfString)
        return corrupt(QStringLiteral("a text that is not UTF-8"));
    return text.data;
}

QVariant ArchiveReader::readBytes()
{
    if (!stringFits())
        return {};
    const auto bytes = m_in.readByteArray();
    if (bytes.status != QCborStreamReader::Ok
        || m_in.readByteArray().status != QCborStreamReader::EndOfString) {
        corrupt(QStringLiteral("a damaged byte buffer"));
        return {};
    }
    return bytes.data;
}

std::optional<qsizetype> ArchiveReader::enterContainer(QCborStreamReader::Type expected, const char *name,
                                                       int itemsPerElement)
{
    const QLatin1String container(name);
    if (type() != expected || !m_in.isLengthKnown())
        return corrupt(QStringLiteral("not %1 of known length").arg(container));
    if (m_path.depth() >= KeyedUnarchiver::maximumDepth)
        return fail(ArchiveErrorTooLarge, QStringLiteral("more than %1 levels").arg(m_path.depth()));
    const quint64 length = m_in.length();
    if (length > quint64(remaining() / itemsPerElement))
        return corrupt(QStringLiteral("%1 longer than the archive").arg(container));
    m_elements += qsizetype(length);
    if (m_elements > KeyedUnarchiver::maximumElements)
        return fail(ArchiveErrorTooLarge,
                    QStringLiteral("more than %1 elements").arg(KeyedUnarchiver::maximumElements));
    m_in.enterContainer();
    return qsizetype(length);
}

bool ArchiveReader::leaveContainer()
{
    if (!m_in.leaveContainer())
        corrupt(QStringLiteral("a damaged container"));
    return !m_error;
}

QVariant ArchiveReader::readList()
{
    const std::optional<qsizetype> length = enterContainer(QCborStreamReader::Array, "a list", 1);
    QVariantList list;
    for (qsizetype i = 0; !m_error && i < *length; ++i) {
        m_path.enter(i);
        list.append(readValue());
        m_path.leave();
    }
    return !m_error && leaveContainer() ? QVariant(list) : QVariant();
}

std::optional<QVariantMap> ArchiveReader::readMap()
{
    const std::optional<qsizetype> length = enterContainer(QCborStreamReader::Map, "a map", 2);
    QVariantMap map;
    for (qsizetype i = 0; !m_error && i < *length; ++i) {
        const std::optional<QString> key = readKey(map);
        if (!key)
            return std::nullopt;
        m_path.enter(*key);
        map.insert(*key, readValue());
        m_path.leave();
    }
    return !m_error && leaveContainer() ? std::optional(map) : std::nullopt;
}

std::optional<QString> ArchiveReader::readKey(const QVariantMap &known)
{
    if (type() != QCborStreamReader::String)
        return corrupt(QStringLiteral("a map key that is not a text"));
    std::optional<QString> key = readText();
    if (key && known.contains(*key))
        return corrupt(QStringLiteral("the key \"%1\" twice").arg(excerpt(*key)));
    return key;
}

QVariant ArchiveReader::readObject()
{
    if (m_in.toTag() != QCborTag(27)) {
        corrupt(QStringLiteral("tag %1, not an object's").arg(quint64(m_in.toTag())));
        return {};
    }
    m_in.next();
    const std::optional<qsizetype> parts = enterContainer(QCborStreamReader::Array, "an object", 1);
    if (m_error)
        return {};
    if (*parts != 2 || type() != QCborStreamReader::String) {
        corrupt(QStringLiteral("an object that is not a class name and fields"));
        return {};
    }
    const QString name = readText().value_or(QString());
    const ArchivableClass *found = findClass(m_allowed.classes, name);
    if (!m_error && !found)
        return notAllowed(QStringLiteral("class \"%1\"").arg(excerpt(name)));
    const std::optional<QVariantMap> fields = m_error ? std::nullopt : readMap();
    if (!fields || !leaveContainer())
        return {};
    ArchivedObject object = found->initWithCoder(Coder(*fields));
    if (!object)
        corrupt(QStringLiteral("fields that make no %1").arg(found->name));
    return QVariant::fromValue(object);
}

} // namespace

QVariant KeyedUnarchiver::unarchivedObjectOfClasses(const AllowedClasses &allowed, const QByteArray &data,
                                                    std::optional<Error> *error)
{
    ArchiveReader reader(allowed, data);
    QVariant root = reader.readRoot();
    if (error)
        *error = reader.error();
    return root;
}

} // namespace wexel

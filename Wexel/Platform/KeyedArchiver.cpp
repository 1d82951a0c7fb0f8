#include "Platform/KeyedArchiver.h"

#include <QCborStreamWriter>

#include "Platform/KeyPath.h"

namespace wexel {

namespace {

/// One archive while it is written. Keeps the first error; what follows it is still written.
class ArchiveWriter
{
public:
    explicit ArchiveWriter(QByteArray *bytes) : m_out(bytes) { }

    /// False, with the error set, when the value itself has no place in an archive. Does not look inside it.
    bool accepts(const QVariant &value);
    void write(const QVariant &value);

    /// For a value that will stand within `levels` lists.
    void startWithin(qsizetype levels)
    {
        for (qsizetype level = 0; level < levels; ++level)
            m_path.enter(qsizetype(0));
    }
    [[nodiscard]] qsizetype elements() const { return m_elements; }
    [[nodiscard]] bool withinLimits() const { return m_elements <= KeyedUnarchiver::maximumElements; }
    [[nodiscard]] const std::optional<Error> &error() const { return m_error; }

private:
    static bool isContainer(const QVariant &value);
    bool refuse(const QString &what);
    void writeList(const QVariantList &list);
    void writeMap(const QVariantMap &map);
    void writeObject(const SecureCoding &object);
    /// Counts the elements; an archive that outgrows the limit is not written on, as it will be refused.
    template <typename Container>
    void limit(Container &kept)
    {
        m_elements += kept.size();
        if (!withinLimits())
            kept.clear();
    }

    QCborStreamWriter m_out;
    KeyPath m_path;
    qsizetype m_elements = 0;
    std::optional<Error> m_error;
};

bool ArchiveWriter::isContainer(const QVariant &value)
{
    const int type = value.typeId();
    return type == QMetaType::QVariantList || type == QMetaType::QStringList || type == QMetaType::QVariantMap
        || type == qMetaTypeId<ArchivedObject>();
}

bool ArchiveWriter::refuse(const QString &what)
{
    if (!m_error)
        m_error = Error{ArchiveErrorDomain, ArchiveErrorNotArchivable,
                        QStringLiteral("cannot archive %1 at %2").arg(what, m_path.text())};
    return false;
}

bool ArchiveWriter::accepts(const QVariant &value)
{
    if (isContainer(value)) {
        if (m_path.depth() >= KeyedUnarchiver::maximumDepth)
            return refuse(QStringLiteral("more than %1 levels").arg(KeyedUnarchiver::maximumDepth));
        return value.typeId() != qMetaTypeId<ArchivedObject>() || value.value<ArchivedObject>()
            || refuse(QStringLiteral("a null object"));
    }
    switch (value.typeId()) {
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    case QMetaType::UnknownType:
        return refuse(QStringLiteral("an absent value"));
    default:
        return refuse(QStringLiteral("a value of type %1").arg(excerpt(QLatin1String(value.typeName()))));
    }
}

void ArchiveWriter::write(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return m_out.append(QStringView(value.toString()));
    case QMetaType::QByteArray:
        return m_out.append(value.toByteArray());
    case QMetaType::Bool:
        return m_out.append(value.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return m_out.append(value.toLongLong());
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return m_out.append(value.toULongLong());
    case QMetaType::Float:
        return m_out.append(value.toFloat());
    case QMetaType::Double:
        return m_out.append(value.toDouble());
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return writeList(value.toList());
    case QMetaType::QVariantMap:
        return writeMap(value.toMap());
    default:
        return writeObject(*value.value<ArchivedObject>());
    }
}

// Lengths are written ahead of their content, so what must be left out is dropped first.
void ArchiveWriter::writeList(const QVariantList &list)
{
    QVariantList kept;
    kept.reserve(list.size());
    for (qsizetype i = 0; i < list.size(); ++i) {
        m_path.enter(i);
        if (accepts(list.at(i)))
            kept.append(list.at(i));
        m_path.leave();
    }
    limit(kept);
    m_out.startArray(static_cast<quint64>(kept.size()));
    for (qsizetype i = 0; i < kept.size(); ++i) {
        m_path.enter(i);
        write(kept.at(i));
        m_path.leave();
    }
    m_out.endArray();
}

void ArchiveWriter::writeMap(const QVariantMap &map)
{
    QVariantMap kept = map;
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        m_path.enter(entry.key());
        if (!accepts(entry.value()))
            kept.remove(entry.key());
        m_path.leave();
    }
    limit(kept);
    m_out.startMap(static_cast<quint64>(kept.size()));
    for (auto entry = kept.cbegin(); entry != kept.cend(); ++entry) {
        m_path.enter(entry.key());
        m_out.append(QStringView(entry.key()));
        write(entry.value());
        m_path.leave();
    }
    m_out.endMap();
}

void ArchiveWriter::writeObject(const SecureCoding &object)
{
    Coder coder;
    object.encodeWithCoder(coder);
    m_out.append(QCborTag(27));
    m_out.startArray(2);
    m_out.append(QStringView(object.codingClassName()));
    writeMap(coder.fields());
    m_out.endArray();
}

Error tooLarge()
{
    return {ArchiveErrorDomain, ArchiveErrorTooLarge,
            QStringLiteral("the archive has more elements or bytes than a reader takes")};
}

std::optional<KeyedArchiver::Element> archived(const QVariant &value, qsizetype levels,
                                               std::optional<Error> *error)
{
    KeyedArchiver::Element element;
    ArchiveWriter writer(&element.bytes);
    writer.startWithin(levels);
    bool complete = writer.accepts(value);
    if (complete)
        writer.write(value);
    element.elements = writer.elements();
    std::optional<Error> problem = writer.error();
    if (!writer.withinLimits() || element.bytes.size() > KeyedUnarchiver::maximumBytes) {
        complete = false;
        problem = tooLarge();
    }
    if (error)
        *error = problem;
    return complete ? std::optional(std::move(element)) : std::nullopt;
}

} // namespace

std::optional<QByteArray> KeyedArchiver::archivedDataWithRootObject(const QVariant &root,
                                                                    std::optional<Error> *error)
{
    auto element = archived(root, 0, error);
    return element ? std::optional(std::move(element->bytes)) : std::nullopt;
}

std::optional<KeyedArchiver::Element> KeyedArchiver::archivedElement(const QVariant &value,
                                                                     std::optional<Error> *error)
{
    return archived(value, 1, error);
}

std::optional<QByteArray>
KeyedArchiver::archivedDataWithElements(const std::vector<const Element *> &elements,
                                        std::optional<Error> *error)
{
    QByteArray archive;
    QCborStreamWriter(&archive).startArray(elements.size());
    qsizetype bytes = archive.size();
    auto count = static_cast<qsizetype>(elements.size());
    for (const Element *element : elements) {
        bytes += element->bytes.size();
        count += element->elements;
    }
    const bool fits = bytes <= KeyedUnarchiver::maximumBytes && count <= KeyedUnarchiver::maximumElements;
    if (error)
        *error = fits ? std::nullopt : std::optional(tooLarge());
    if (!fits)
        return {};
    archive.reserve(bytes);
    for (const Element *element : elements)
        archive.append(element->bytes);
    return archive;
}

} // namespace wexel

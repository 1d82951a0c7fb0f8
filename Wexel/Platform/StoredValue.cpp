#include "Platform/StoredValue.h"

#include <algorithm>
#include <limits>

#include <QCborValue>
#include <QDateTime>
#include <QtEndian>

namespace wexel {

namespace {

constexpr int maximumDepth = 32;
constexpr qsizetype worthCompressing = 256;
constexpr int fastest = 1;

bool isPropertyList(const QVariant &value, int depth = 0)
{
    const auto isInner = [depth](const QVariant &inner) { return isPropertyList(inner, depth + 1); };
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Float:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QStringList:
        return true;
    case QMetaType::ULongLong:
        return value.toULongLong() <= quint64(std::numeric_limits<qint64>::max());
    case QMetaType::QDateTime:
        return value.toDateTime().isValid();
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        return depth < maximumDepth && std::all_of(list.cbegin(), list.cend(), isInner);
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        return depth < maximumDepth && std::all_of(map.cbegin(), map.cend(), isInner);
    }
    default:
        return false;
    }
}

// A damaged length must not make zlib allocate what the bytes can never unfold to.
QVariant inflated(const QByteArray &content)
{
    constexpr qsizetype greatestRatio = 1100; // deflate's own limit is 1032
    if (content.size() < 4 || qFromBigEndian<quint32>(content.constData()) > content.size() * greatestRatio)
        return {};
    const QByteArray bytes = qUncompress(content);
    return bytes.isEmpty() ? QVariant() : QVariant(bytes);
}

} // namespace

std::optional<StoredValue> StoredValue::fromVariant(const QVariant &value)
{
    if (!isPropertyList(value))
        return std::nullopt;
    if (value.typeId() == QMetaType::QByteArray)
        return StoredValue{Bytes, value.toByteArray()};
    return StoredValue{PropertyList, QCborValue::fromVariant(value).toCbor()};
}

QVariant StoredValue::toVariant() const
{
    switch (kind) {
    case PropertyList: {
        QCborParserError error;
        const QCborValue value = QCborValue::fromCbor(content, &error);
        return error.error == QCborError::NoError ? value.toVariant() : QVariant();
    }
    case Bytes:
        return content;
    case DeflatedBytes:
        return inflated(content);
    case Digests:
        break;
    }
    return {};
}

StoredValue StoredValue::compressed() const
{
    if (kind != Bytes || content.size() < worthCompressing)
        return *this;
    StoredValue smaller{DeflatedBytes, qCompress(content, fastest)};
    return smaller.content.size() < content.size() ? smaller : *this;
}

} // namespace wexel

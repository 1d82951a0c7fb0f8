#include "Platform/PropertyList.h"

#include <algorithm>
#include <array>

#include <QDateTime>
#include <QFile>

namespace wexel {

namespace {

struct ScalarType {
    const char *element;
    const char *expected;
    QVariant (*convert)(const QString &text); // invalid when the text is not of that type
};

template <bool value>
QVariant toBool(const QString &text)
{
    return text.isEmpty() ? QVariant(value) : QVariant();
}

QVariant toInteger(const QString &text)
{
    bool isInteger = false;
    const qlonglong number = text.trimmed().toLongLong(&isInteger);
    return isInteger ? QVariant(number) : QVariant();
}

QVariant toReal(const QString &text)
{
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    return isNumber ? QVariant(number) : QVariant();
}

QVariant toBytes(const QString &text)
{
    const QByteArray base64 = text.simplified().remove(u' ').toUtf8();
    const auto bytes = QByteArray::fromBase64Encoding(base64, QByteArray::AbortOnBase64DecodingErrors);
    return bytes.decodingStatus == QByteArray::Base64DecodingStatus::Ok ? QVariant(bytes.decoded)
                                                                        : QVariant();
}

QVariant toDate(const QString &text)
{
    const QDateTime date = QDateTime::fromString(text.trimmed(), Qt::ISODate);
    return date.isValid() ? QVariant(date) : QVariant();
}

constexpr std::array<ScalarType, 7> scalarTypes{{
    {"string", "text", [](const QString &text) { return QVariant(text); }},
    {"true", "nothing inside <true/>", toBool<true>},
    {"false", "nothing inside <false/>", toBool<false>},
    {"integer", "an integer", toInteger},
    {"real", "a number", toReal},
    {"data", "Base64", toBytes},
    {"date", "a date like 2024-01-31T12:00:00Z", toDate},
}};

} // namespace

PropertyListReader::PropertyListReader(const QByteArray &xml, QString name)
    : m_xmlBytes(xml)
    , m_name(std::move(name))
{
    m_xml.setNamespaceProcessing(false);
    m_xml.setEntityExpansionLimit(0);
}

std::optional<QVariantMap> PropertyListReader::read()
{
    if (m_xmlBytes.size() > maximumBytes)
        fail(QStringLiteral("expected at most %1 bytes").arg(maximumBytes));
    else if (m_xmlBytes.startsWith("bplist"))
        fail(QStringLiteral(
            "expected an XML property list, found a binary one (plutil -convert xml1 converts it)"));
    else
        m_xml.addData(m_xmlBytes);
    readPrologue();
    if (!hasFailed() && (!nextChild() || m_xml.name() != QLatin1String("dict")))
        fail(QStringLiteral("expected <dict>, found %1").arg(describeToken()));
    const QVariant root = hasFailed() ? QVariant() : readValue(1);
    if (!hasFailed() && nextChild())
        fail(QStringLiteral("expected </plist>, found %1").arg(describeToken()));
    while (!hasFailed() && !m_xml.atEnd())
        next();
    return hasFailed() ? std::nullopt : std::optional(root.toMap());
}

// The next token that is not a comment; false after the end or a failure.
bool PropertyListReader::next()
{
    while (!hasFailed() && !m_xml.atEnd()) {
        m_xml.readNext();
        if (m_xml.hasError())
            fail(m_xml.errorString());
        else if (!m_xml.entityDeclarations().isEmpty())
            fail(QStringLiteral("entity declarations are refused"));
        else if (!m_xml.isComment() && !m_xml.isProcessingInstruction())
            return true;
    }
    return false;
}

// Moves to the next child element of the one being read; false at its end.
bool PropertyListReader::nextChild()
{
    while (next() && !m_xml.isEndElement()) {
        if (m_xml.isStartElement())
            return true;
        if (!m_xml.isWhitespace())
            fail(QStringLiteral("expected an element, found %1").arg(describeToken()));
    }
    return false;
}

void PropertyListReader::readPrologue()
{
    while (next() && !m_xml.isStartElement()) { }
    if (!hasFailed() && m_xml.name() != QLatin1String("plist"))
        fail(QStringLiteral("expected <plist>, found %1").arg(describeToken()));
}

QVariant PropertyListReader::readValue(int depth)
{
    if (depth > maximumDepth) {
        fail(QStringLiteral("expected at most %1 levels").arg(maximumDepth));
        return {};
    }
    if (m_xml.name() == QLatin1String("dict"))
        return readDictionary(depth);
    if (m_xml.name() == QLatin1String("array"))
        return readArray(depth);
    return readScalar();
}

QVariantMap PropertyListReader::readDictionary(int depth)
{
    QVariantMap dictionary;
    while (nextChild()) {
        if (m_xml.name() != QLatin1String("key")) {
            fail(QStringLiteral("expected <key> or </dict>, found %1").arg(describeToken()));
            break;
        }
        const QString key = readText();
        m_key = key;
        if (dictionary.contains(key))
            fail(QStringLiteral("expected each key once"));
        else if (!nextChild())
            fail(QStringLiteral("expected a value, found %1").arg(describeToken()));
        else
            dictionary.insert(key, readValue(depth + 1));
    }
    return dictionary;
}

QVariantList PropertyListReader::readArray(int depth)
{
    QVariantList array;
    while (nextChild())
        array.append(readValue(depth + 1));
    return array;
}

QVariant PropertyListReader::readScalar()
{
    const auto *const type
        = std::find_if(scalarTypes.begin(), scalarTypes.end(), [this](const ScalarType &scalar) {
              return m_xml.name() == QLatin1String(scalar.element);
          });
    if (type == scalarTypes.end()) {
        fail(QStringLiteral("expected a property list value, found %1").arg(describeToken()));
        return {};
    }
    const QString text = readText();
    QVariant value = type->convert(text);
    if (!value.isValid())
        fail(QStringLiteral("expected %1, found \"%2\"").arg(QLatin1String(type->expected), text.left(40)));
    return value;
}

QString PropertyListReader::readText()
{
    QString text;
    while (next() && !m_xml.isEndElement()) {
        if (m_xml.isCharacters())
            text += m_xml.text();
        else
            fail(QStringLiteral("expected text, found %1").arg(describeToken()));
    }
    return text;
}

QString PropertyListReader::describeToken() const
{
    if (m_xml.isStartElement())
        return QStringLiteral("<%1>").arg(m_xml.name().left(40));
    if (m_xml.isEndElement())
        return QStringLiteral("</%1>").arg(m_xml.name().left(40));
    return m_xml.isCharacters() ? QStringLiteral("\"%1\"").arg(m_xml.text().trimmed().left(40))
                                : m_xml.tokenString();
}

// Only the first problem counts: the others follow from it.
void PropertyListReader::fail(const QString &problem)
{
    if (hasFailed())
        return;
    const QString key = m_key.isEmpty() ? QString() : QStringLiteral("key \"%1\": ").arg(m_key.left(80));
    m_error = QStringLiteral("%1:%2: %3%4").arg(m_name, QString::number(m_xml.lineNumber()), key, problem);
}

std::optional<QVariantMap> readPropertyList(const QString &path, QString &error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("%1: %2").arg(path, file.errorString());
        return std::nullopt;
    }
    const auto size = std::min<qint64>(file.size(), PropertyListReader::maximumBytes);
    PropertyListReader reader(file.read(size + 1), path); // one more, so that it sees what is too long
    auto dictionary = reader.read();
    error = reader.error();
    return dictionary;
}

} // namespace wexel

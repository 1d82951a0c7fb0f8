#pragma once

#include <optional>

#include <QByteArray>
#include <QString>
#include <QVariantMap>
#include <QXmlStreamReader>

namespace wexel {

/// Reads an XML property list whose root is a dictionary: dict, array, string, integer, real, true, false,
/// data and date, as QVariantMap, QVariantList, QString, qlonglong, double, bool, QByteArray and QDateTime.
///
/// The input is hostile: nothing is half read. Refused are more than `maximumBytes`, nesting deeper than
/// `maximumDepth`, entity declarations, keys that appear twice, and everything that is not a property list.
/// One object reads one text. Thread-safe when each thread has its own.
class PropertyListReader
{
public:
    static constexpr qsizetype maximumBytes = 1024 * 1024;
    static constexpr int maximumDepth = 32;

    /// \param name what errors call the text, usually its path
    PropertyListReader(const QByteArray &xml, QString name);

    /// The root dictionary; absent when the text is refused.
    [[nodiscard]] std::optional<QVariantMap> read();
    /// Why `read` gave nothing: "NAME:LINE: key "KEY": expected ..., found ...".
    [[nodiscard]] QString error() const { return m_error; }

private:
    bool next();
    bool nextChild();
    void readPrologue();
    QVariant readValue(int depth);
    QVariantMap readDictionary(int depth);
    QVariantList readArray(int depth);
    QVariant readScalar();
    QString readText();
    QString describeToken() const;
    void fail(const QString &problem);
    [[nodiscard]] bool hasFailed() const { return !m_error.isEmpty(); }

    QByteArray m_xmlBytes;
    QXmlStreamReader m_xml;
    QString m_name;
    QString m_key; // the last key read
    QString m_error;
};

/// Reads a property list from a file or a Qt resource. Absent, with `error` set, when it cannot be read.
std::optional<QVariantMap> readPropertyList(const QString &path, QString &error);

} // namespace wexel

#pragma once

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>
#include <QString>

/// The reports that the test host sends, known by their numbers on both sides.
namespace NumberedReport {

inline QString description(int number)
{
    return QStringLiteral("report %1 of many").arg(number);
}

/// The number in the first such description, 0 when there is none.
inline int numberIn(const QByteArray &text)
{
    const QByteArray start = "report ";
    for (auto at = text.indexOf(start); at >= 0; at = text.indexOf(start, at + 1)) {
        const auto digits = at + start.size();
        const auto end = text.indexOf(" of many", digits);
        if (const int number = text.mid(digits, end - digits).toInt(); number > 0)
            return number;
    }
    return 0;
}

/// 50 to 200 KB that no two reports share.
inline QByteArray attachment(int number)
{
    QRandomGenerator random(static_cast<quint32>(number));
    QList<quint32> words(random.bounded(12'500, 50'000));
    random.fillRange(words.data(), words.size());
    return {reinterpret_cast<const char *>(words.constData()), words.size() * qsizetype(sizeof(quint32))};
}

} // namespace NumberedReport

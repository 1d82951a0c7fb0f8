#pragma once

#include <optional>

#include <QDateTime>
#include <QString>

#include "Platform/Clock.h"

namespace wexel {

/// ISO 8601 with milliseconds and a colon in the zone's offset, for example 2019-03-07T14:05:09.123+01:00; a zero
/// offset is the letter Z.
inline const QString DateFormat_toString = QStringLiteral("yyyy-MM-dd'T'HH:mm:ss.SSSZZZZZ");

/// Formats and reads every timestamp of the library, in the local time zone. Thread-safe.
class WXLDateProvider
{
public:
    explicit WXLDateProvider(const Clock &clock);
    static WXLDateProvider &sharedInstance();

    /// The current time.
    [[nodiscard]] QString timestamp() const;
    /// The format is deliberately ignored: every caller gets DateFormat_toString.
    [[nodiscard]] static QString stringFromDate(const QDateTime &date,
                                                const std::optional<QString> &dateFormat = {});
    /// Nothing when the text does not match the format.
    [[nodiscard]] static std::optional<QDateTime> dateFromTimestamp(const QString &text);
    [[nodiscard]] QDateTime now() const { return m_clock.now(); }

private:
    const Clock &m_clock;
};

} // namespace wexel

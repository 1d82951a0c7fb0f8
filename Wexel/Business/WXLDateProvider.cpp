#include "Business/WXLDateProvider.h"

#include <QRegularExpression>

namespace wexel {

WXLDateProvider::WXLDateProvider(const Clock &clock) : m_clock(clock) { }

WXLDateProvider &WXLDateProvider::sharedInstance()
{
    static const auto *clock = new SystemClock;
    static auto *instance = new WXLDateProvider(*clock);
    return *instance;
}

QString WXLDateProvider::timestamp() const
{
    return stringFromDate(m_clock.now());
}

QString WXLDateProvider::stringFromDate(const QDateTime &date, const std::optional<QString> &)
{
    const int offset = date.toLocalTime().offsetFromUtc();
    return (offset == 0 ? date.toUTC() : date.toOffsetFromUtc(offset)).toString(Qt::ISODateWithMs);
}

std::optional<QDateTime> WXLDateProvider::dateFromTimestamp(const QString &text)
{
    static const auto &format = *new QRegularExpression( // outlives every thread
        QStringLiteral(R"(\A\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}(Z|[+-]\d\d:\d\d)\z)"));
    const auto date
        = format.match(text).hasMatch() ? QDateTime::fromString(text, Qt::ISODateWithMs) : QDateTime();
    return date.isValid() ? std::optional(date) : std::nullopt;
}

} // namespace wexel

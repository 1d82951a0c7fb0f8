#pragma once

#include <QDateTime>

namespace wexel {

/// Where the time comes from. Thread-safe.
class Clock
{
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual QDateTime now() const = 0;
};

/// The machine's clock, in the local time zone.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTime(); }
};

} // namespace wexel

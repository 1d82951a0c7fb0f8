#pragma once

#include <QString>

#include "Platform/DeviceFacts.h"

namespace wexel {

/// The machine's batteries, read from sysfs. Several count as one; those of mice and headsets do not count. A
/// battery that is plugged in but kept below 100 % by a charge limit is "charging", the platform's word for
/// plugged in and not full. Thread-safe: no state.
class PowerSupplies
{
public:
    explicit PowerSupplies(QString folder = QStringLiteral("/sys/class/power_supply"));

    [[nodiscard]] BatteryFact battery() const;

private:
    QString m_folder;
};

} // namespace wexel

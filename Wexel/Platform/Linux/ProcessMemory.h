#pragma once

#include <optional>

#include <QString>

#include "Platform/Error.h"

namespace wexel {

/// Memory of this process and of the machine in bytes, read from procfs. Thread-safe: no state.
class ProcessMemory
{
public:
    explicit ProcessMemory(QString procFolder = QStringLiteral("/proc"));

    [[nodiscard]] std::optional<quint64> residentBytes(Error &error) const;
    [[nodiscard]] std::optional<quint64> physicalBytes() const;
    /// Active + inactive + wired, see DeviceFacts::usedBytes.
    [[nodiscard]] std::optional<quint64> usedBytes(Error &error) const;

private:
    QString m_folder;
};

} // namespace wexel

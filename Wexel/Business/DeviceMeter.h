#pragma once

#include <memory>

#include <QString>

#include "Business/CpuMeter.h"
#include "Business/SampleRecords.h"

namespace wexel {

class WXLConnection;
class WXLDateProvider;

/// Measures what the black box records, one function a metric; each makes a new record with the time of its making. A
/// measurement that fails has the value "-1.000". All but `battery` on any thread, that one on the main thread.
class DeviceMeter
{
public:
    /// The collaborators outlive the meter. Processor use is measured from here on.
    /// \param documentsPath storage is that of the file system which holds it
    DeviceMeter(const DeviceFacts &facts, const WXLConnection &connection,
                const WXLDateProvider &dateProvider, QString documentsPath);

    /// Of the application since the last call, in percent of one core.
    [[nodiscard]] std::shared_ptr<Record> cpuUsage();
    /// Resident, in MB.
    [[nodiscard]] std::shared_ptr<Record> memoryUsedByApplication() const;
    /// Active, inactive and wired, in MB.
    [[nodiscard]] std::shared_ptr<Record> memoryUsedByDevice() const;
    /// In MB.
    [[nodiscard]] std::shared_ptr<Record> storageUsage() const;
    [[nodiscard]] std::shared_ptr<Battery> battery() const;
    /// Type "offline" without connectivity; "wifi" and its name; the radio access technology. A machine that is connected
    /// by neither has empty texts for both.
    [[nodiscard]] std::shared_ptr<Network> network() const;
    /// Number of the device orientation, see DeviceFacts::deviceOrientation.
    [[nodiscard]] std::shared_ptr<Record> orientation() const;

private:
    [[nodiscard]] std::shared_ptr<Record> record(const QString &value) const;
    [[nodiscard]] std::shared_ptr<Record> decimalRecord(std::optional<double> value) const;

    const DeviceFacts &m_facts;
    const WXLConnection &m_connection;
    const WXLDateProvider &m_dateProvider;
    const QString m_documentsPath;
    CpuMeter m_cpu;
};

} // namespace wexel

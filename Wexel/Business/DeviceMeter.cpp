#include "Business/DeviceMeter.h"

#include "Business/Measure.h"
#include "Business/WXLDateProvider.h"
#include "Helpers/WXLConnection.h"

namespace wexel {

namespace {

std::optional<double> megabytes(std::optional<quint64> bytes)
{
    return bytes ? std::optional(wexel::megabytes(*bytes)) : std::nullopt;
}

} // namespace

DeviceMeter::DeviceMeter(const DeviceFacts &facts, const WXLConnection &connection,
                         const WXLDateProvider &dateProvider, QString documentsPath)
    : m_facts(facts)
    , m_connection(connection)
    , m_dateProvider(dateProvider)
    , m_documentsPath(std::move(documentsPath))
    , m_cpu(facts)
{
}

std::shared_ptr<Record> DeviceMeter::cpuUsage()
{
    return decimalRecord(m_cpu.percentSinceLast());
}

std::shared_ptr<Record> DeviceMeter::memoryUsedByApplication() const
{
    Error ignored;
    return decimalRecord(megabytes(m_facts.residentBytes(ignored)));
}

std::shared_ptr<Record> DeviceMeter::memoryUsedByDevice() const
{
    Error ignored;
    return decimalRecord(megabytes(m_facts.usedBytes(ignored)));
}

std::shared_ptr<Record> DeviceMeter::storageUsage() const
{
    Error ignored;
    const auto size = m_facts.fileSystem(m_documentsPath, ignored);
    return decimalRecord(megabytes(size ? std::optional(size->totalBytes - size->freeBytes) : std::nullopt));
}

std::shared_ptr<Battery> DeviceMeter::battery() const
{
    const BatteryFact fact = m_facts.battery();
    return std::make_shared<Battery>(QString::number(fact.state), numberText(fact.level),
                                     m_dateProvider.timestamp());
}

std::shared_ptr<Network> DeviceMeter::network() const
{
    const bool online = m_connection.hasConnectivity();
    const NetworkIdentity identity = online ? m_facts.network() : NetworkIdentity();
    const QString type = online ? identity.type.value_or(QString()) : QStringLiteral("offline");
    return std::make_shared<Network>(type, identity.name.value_or(QString()), m_dateProvider.timestamp());
}

std::shared_ptr<Record> DeviceMeter::orientation() const
{
    return record(QString::number(m_facts.deviceOrientation()));
}

std::shared_ptr<Record> DeviceMeter::record(const QString &value) const
{
    return std::make_shared<Record>(value, m_dateProvider.timestamp());
}

std::shared_ptr<Record> DeviceMeter::decimalRecord(std::optional<double> value) const
{
    return record(decimalText(value.value_or(-1)));
}

} // namespace wexel

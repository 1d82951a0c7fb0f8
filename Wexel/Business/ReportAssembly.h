#pragma once

#include <memory>

#include <QVariantMap>

#include <Wexel/WXLWexelReportData.h>

#include "Business/WXLDateProvider.h"
#include "Platform/DeviceFacts.h"

namespace wexel {

class Flow;
class WXLAppRepository;
class WXLConnection;

/// Gathers what is known about the device and the application into a new report. A source that gives nothing leaves
/// its key out; none can keep a report from being made. Main thread only.
class ReportAssembly
{
public:
    /// The collaborators must outlive the assembly.
    /// \param documentsPath disk space is reported for the file system that holds it
    ReportAssembly(const DeviceFacts &facts, const WXLConnection &connection,
                   const WXLAppRepository &repository, const WXLDateProvider &dateProvider, const Flow &flow,
                   QString documentsPath);

    [[nodiscard]] std::shared_ptr<WXLWexelReportData> makeReportData() const;
    [[nodiscard]] QVariantMap setupDefaultData() const;
    /// Hardware model identifier.
    [[nodiscard]] QString deviceName() const;

private:
    void addIdentity(QVariantMap &data) const;
    static void addPermissions(QVariantMap &data, const Permissions &states);
    void addTimeAndPlace(QVariantMap &data) const;
    void addBattery(QVariantMap &data) const;
    void addDisk(QVariantMap &data) const;
    void addMemory(QVariantMap &data) const;
    void addScreen(QVariantMap &data) const;
    void addNetwork(QVariantMap &data, const NetworkIdentity &network) const;
    void addHistories(QVariantMap &data) const;

    const DeviceFacts &m_facts;
    const WXLConnection &m_connection;
    const WXLAppRepository &m_repository;
    const WXLDateProvider &m_dateProvider;
    const Flow &m_flow;
    QString m_documentsPath;
};

} // namespace wexel

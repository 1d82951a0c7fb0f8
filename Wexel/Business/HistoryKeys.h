#pragma once

#include <QString>

namespace wexel {

// Under these keys the histories are stored in the application's user defaults.
inline const QString kWXLCpuHistoryKey = QStringLiteral("cpuHistoryKey");
inline const QString kWXLMemoryUsedByAppHistoryKey = QStringLiteral("memoryUsedByAppHistoryKey");
inline const QString kWXLMemoryUsedByDeviceHistoryKey = QStringLiteral("memoryUsedByDeviceHistoryKey");
inline const QString kWXLStorageHistoryKey = QStringLiteral("storageHistoryKey");
inline const QString kWXLBatteryHistoryKey = QStringLiteral("batteryHistoryKey");
inline const QString kWXLNetworkHistoryKey = QStringLiteral("networkHistoryKey");
inline const QString kWXLOrientationHistoryKey = QStringLiteral("orientationHistoryKey");
inline const QString kWXLSessionHistoryKey = QStringLiteral("sessionStateHistoryKey");
inline const QString kUserEventReportKey = QStringLiteral("userEventReport");
inline const QString kNetworkRequestReportKey = QStringLiteral("networkRequestReportKey");

} // namespace wexel

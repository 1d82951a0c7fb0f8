#pragma once

#include <QString>

namespace wexel {

// The keys of a report's gathered data.
#define WEXEL_REPORT_KEY(name) inline const QString kWXL##name = QStringLiteral("WXL_" #name)
WEXEL_REPORT_KEY(ModelName);
WEXEL_REPORT_KEY(DeviceType);
WEXEL_REPORT_KEY(SystemVersion);
WEXEL_REPORT_KEY(AppVersion);
WEXEL_REPORT_KEY(BuildVersion);
WEXEL_REPORT_KEY(SystemBuildVersion);
WEXEL_REPORT_KEY(WexelSDKVersion);
WEXEL_REPORT_KEY(CameraPermission);
WEXEL_REPORT_KEY(MicrophonePermission);
WEXEL_REPORT_KEY(ContactsPermission);
WEXEL_REPORT_KEY(PhotoLibraryPermission);
WEXEL_REPORT_KEY(LocationPermission);
WEXEL_REPORT_KEY(CalendarPermission);
WEXEL_REPORT_KEY(MediaLibraryPermission);
WEXEL_REPORT_KEY(TimeZone);
WEXEL_REPORT_KEY(Locale);
WEXEL_REPORT_KEY(IssueReportedTime);
WEXEL_REPORT_KEY(BatteryStatus);
WEXEL_REPORT_KEY(BatteryLevel);
WEXEL_REPORT_KEY(AvailableDiskSpace); // the file system's total size, as text
WEXEL_REPORT_KEY(UsedDiskSpace); // total - free, as a number
WEXEL_REPORT_KEY(UsedApplicationMemory);
WEXEL_REPORT_KEY(AvailableMemory);
WEXEL_REPORT_KEY(UsedMemory);
WEXEL_REPORT_KEY(DeviceOrientation);
WEXEL_REPORT_KEY(ScreenHeight);
WEXEL_REPORT_KEY(ScreenWidth);
WEXEL_REPORT_KEY(NetworkName);
WEXEL_REPORT_KEY(NetworkType);
WEXEL_REPORT_KEY(ViewControllerName);
WEXEL_REPORT_KEY(Authentication);
WEXEL_REPORT_KEY(SessionStateHistory);
WEXEL_REPORT_KEY(CpuHistory);
WEXEL_REPORT_KEY(BatteryHistory);
WEXEL_REPORT_KEY(NetworkHistory);
WEXEL_REPORT_KEY(MemoryUsedByAppHistory);
WEXEL_REPORT_KEY(MemoryUsedByDeviceHistory);
WEXEL_REPORT_KEY(StorageHistory);
WEXEL_REPORT_KEY(OrientationHistory);
WEXEL_REPORT_KEY(UserEventsHistory);
WEXEL_REPORT_KEY(NetworkRequestHistory);
WEXEL_REPORT_KEY(UserInput);
WEXEL_REPORT_KEY(UserEmail);
#undef WEXEL_REPORT_KEY

// The state of a permission. Only the first two are ever written; any other permission is absent.
inline const QString kWXLAccessPermissionGranted = QStringLiteral("on");
inline const QString kWXLAccessPermissionGrantedWhileUsing = QStringLiteral("only_while_using_the_app");
inline const QString kWXLAccessPermissionNotGranted = QStringLiteral("off");
inline const QString kWXLAccessPermissionDenied = QStringLiteral("denied");

inline constexpr int NUMBER_OF_BYTES_IN_MB = 1'048'576;

} // namespace wexel

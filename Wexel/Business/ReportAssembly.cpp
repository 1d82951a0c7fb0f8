#include "Business/ReportAssembly.h"

#include "Business/Flow.h"
#include "Business/Measure.h"
#include "Business/ReportKeys.h"
#include "Business/WXLBlackBox.h"
#include "Business/WXLNetworkRequestReporter.h"
#include "Business/WXLSessionReporter.h"
#include "Business/WXLUserEventReporter.h"
#include "Helpers/WXLConnection.h"
#include "Platform/Bundle.h"
#include "Platform/Log.h"

namespace wexel {

namespace {

template <typename Value>
void insertIfPresent(QVariantMap &data, const QString &key, const std::optional<Value> &value)
{
    if (value)
        data.insert(key, QVariant::fromValue(*value));
}

std::optional<QString> text(const Bundle &bundle, const QString &key)
{
    const QVariant value = bundle.objectForInfoDictionaryKey(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

const struct {
    Permission permission;
    const QString *key;
} permissions[] = {
    {Permission::Camera, &kWXLCameraPermission},
    {Permission::Microphone, &kWXLMicrophonePermission},
    {Permission::Contacts, &kWXLContactsPermission},
    {Permission::PhotoLibrary, &kWXLPhotoLibraryPermission},
    {Permission::Location, &kWXLLocationPermission},
    {Permission::Calendar, &kWXLCalendarPermission},
    {Permission::MediaLibrary, &kWXLMediaLibraryPermission},
};

/// The stored session states; nothing rather than an empty list.
std::optional<QVariantList> sessionHistory(const WXLAppRepository &repository)
{
    QVariantList history = WXLSessionReporter::sessionHistory(repository);
    return history.isEmpty() ? std::nullopt : std::optional(std::move(history));
}

const struct {
    const QString *key;
    std::optional<QVariantList> (*read)(const WXLAppRepository &);
} histories[] = {
    {&kWXLSessionStateHistory, sessionHistory},
    {&kWXLCpuHistory, WXLBlackBox::cpuHistory},
    {&kWXLBatteryHistory, WXLBlackBox::batteryHistory},
    {&kWXLNetworkHistory, WXLBlackBox::networkHistory},
    {&kWXLMemoryUsedByAppHistory, WXLBlackBox::memoryUsedByAppHistory},
    {&kWXLMemoryUsedByDeviceHistory, WXLBlackBox::memoryUsedByDeviceHistory},
    {&kWXLStorageHistory, WXLBlackBox::diskSpaceHistory},
    {&kWXLOrientationHistory, WXLBlackBox::orientationHistory},
    {&kWXLUserEventsHistory, WXLUserEventReporter::userEventHistory},
    {&kWXLNetworkRequestHistory, WXLNetworkRequestReporter::networkRequestHistory},
};

} // namespace

ReportAssembly::ReportAssembly(const DeviceFacts &facts, const WXLConnection &connection,
                               const WXLAppRepository &repository, const WXLDateProvider &dateProvider,
                               const Flow &flow, QString documentsPath)
    : m_facts(facts)
    , m_connection(connection)
    , m_repository(repository)
    , m_dateProvider(dateProvider)
    , m_flow(flow)
    , m_documentsPath(std::move(documentsPath))
{
}

std::shared_ptr<WXLWexelReportData> ReportAssembly::makeReportData() const
{
    return std::make_shared<WXLWexelReportData>(setupDefaultData());
}

QVariantMap ReportAssembly::setupDefaultData() const
{
    QVariantMap data;
    addIdentity(data);
    const ServiceFacts services = m_facts.services();
    addPermissions(data, services.permissions);
    addTimeAndPlace(data);
    addBattery(data);
    addDisk(data);
    addMemory(data);
    addScreen(data);
    addNetwork(data, services.network);
    insertIfPresent(data, kWXLViewControllerName, m_flow.topViewControllerName());
    data.insert(kWXLAuthentication, services.canAuthenticateOwner ? 1 : 0);
    addHistories(data);
    return data;
}

QString ReportAssembly::deviceName() const
{
    return m_facts.hardwareModel();
}

void ReportAssembly::addIdentity(QVariantMap &data) const
{
    data.insert(kWXLModelName, deviceName());
    data.insert(kWXLDeviceType, QStringLiteral("iOS"));
    data.insert(kWXLSystemVersion, m_facts.systemVersion());
    const QString shortVersion = QStringLiteral("CFBundleShortVersionString");
    insertIfPresent(data, kWXLAppVersion, text(Bundle::main(), shortVersion));
    insertIfPresent(data, kWXLBuildVersion, text(Bundle::main(), QStringLiteral("CFBundleVersion")));
    insertIfPresent(data, kWXLSystemBuildVersion, text(Bundle::main(), QStringLiteral("DTPlatformBuild")));
    insertIfPresent(data, kWXLWexelSDKVersion, text(Bundle::library(), shortVersion));
}

void ReportAssembly::addPermissions(QVariantMap &data, const Permissions &states)
{
    for (const auto &[permission, key] : permissions) {
        const auto state = states.find(permission);
        switch (state == states.end() ? PermissionState::NotGranted : state->second) {
        case PermissionState::Granted:
            data.insert(*key, kWXLAccessPermissionGranted);
            break;
        case PermissionState::GrantedWhileUsing:
            data.insert(*key, kWXLAccessPermissionGrantedWhileUsing);
            break;
        case PermissionState::NotGranted: // left out, whether it was denied or never asked for
            break;
        }
    }
}

void ReportAssembly::addTimeAndPlace(QVariantMap &data) const
{
    data.insert(kWXLTimeZone, m_facts.timeZoneName());
    data.insert(kWXLLocale, m_facts.localeIdentifier().value_or(QStringLiteral("-")));
    data.insert(kWXLIssueReportedTime, WXLDateProvider::stringFromDate(m_dateProvider.now()));
}

void ReportAssembly::addBattery(QVariantMap &data) const
{
    const BatteryFact battery = m_facts.battery();
    data.insert(kWXLBatteryStatus, QString::number(battery.state));
    data.insert(kWXLBatteryLevel, numberText(battery.level));
}

void ReportAssembly::addDisk(QVariantMap &data) const
{
    Error error;
    const auto size = m_facts.fileSystem(m_documentsPath, error);
    if (!size)
        return log(QStringLiteral("Error obtaining system memory info: Domain = %1, Code = %2")
                       .arg(error.domain)
                       .arg(error.code));
    // The "available" space has always been the total, and a text; readers count on it.
    data.insert(kWXLAvailableDiskSpace, numberText(megabytes(size->totalBytes)));
    data.insert(kWXLUsedDiskSpace, megabytes(size->totalBytes - size->freeBytes));
}

void ReportAssembly::addMemory(QVariantMap &data) const
{
    Error error;
    if (const auto resident = m_facts.residentBytes(error)) {
        data.insert(kWXLUsedApplicationMemory, megabytes(*resident));
        if (const auto physical = m_facts.physicalBytes())
            data.insert(kWXLAvailableMemory, megabytes(*physical));
    } else {
        log(QStringLiteral("Error with task_info(): %1").arg(error.localizedDescription()));
    }
    if (const auto used = m_facts.usedBytes(error))
        data.insert(kWXLUsedMemory, megabytes(*used));
    else
        log(QStringLiteral("Error with fetching vm statistic: %1").arg(error.localizedDescription()));
}

void ReportAssembly::addScreen(QVariantMap &data) const
{
    data.insert(kWXLDeviceOrientation, m_facts.deviceOrientation());
    data.insert(kWXLScreenHeight, m_facts.screenHeight());
    data.insert(kWXLScreenWidth, m_facts.screenWidth());
}

void ReportAssembly::addNetwork(QVariantMap &data, const NetworkIdentity &network) const
{
    if (!m_connection.hasConnectivity()) {
        data.insert(kWXLNetworkName, QString());
        data.insert(kWXLNetworkType, QStringLiteral("offline"));
        return;
    }
    insertIfPresent(data, kWXLNetworkName, network.name);
    insertIfPresent(data, kWXLNetworkType, network.type);
}

void ReportAssembly::addHistories(QVariantMap &data) const
{
    for (const auto &[key, read] : histories)
        insertIfPresent(data, *key, read(m_repository));
}

} // namespace wexel

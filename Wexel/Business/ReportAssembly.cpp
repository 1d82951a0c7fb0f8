#include "Business/ReportAssembly.h"

#include "Business/Flow.h"
#include "Business/HistoryKeys.h"
#include "Business/HistorySnapshot.h"
#include "Business/ReportKeys.h"
#include "Helpers/WXLConnection.h"
#include "Platform/Bundle.h"
#include "Platform/Log.h"

namespace wexel {

namespace {

double megabytes(quint64 bytes)
{
    return static_cast<double>(bytes) / NUMBER_OF_BYTES_IN_MB;
}

/// A double as the shortest text that reads back to 16 digits.
QString numberText(double number)
{
    constexpr int digits = 16;
    return QString::number(number, 'g', digits);
}

/// A single-precision number as text.
QString numberText(float number)
{
    constexpr int digits = 7;
    return QString::number(static_cast<double>(number), 'g', digits);
}

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

const struct {
    const QString *stored;
    const QString *reported;
    QLatin1String reader;
} histories[] = {
    {&kWXLSessionHistoryKey, &kWXLSessionStateHistory, QLatin1String("WXLSessionReporter")},
    {&kWXLCpuHistoryKey, &kWXLCpuHistory, QLatin1String("WXLBlackBox")},
    {&kWXLBatteryHistoryKey, &kWXLBatteryHistory, QLatin1String("WXLBlackBox")},
    {&kWXLNetworkHistoryKey, &kWXLNetworkHistory, QLatin1String("WXLBlackBox")},
    {&kWXLMemoryUsedByAppHistoryKey, &kWXLMemoryUsedByAppHistory, QLatin1String("WXLBlackBox")},
    {&kWXLMemoryUsedByDeviceHistoryKey, &kWXLMemoryUsedByDeviceHistory, QLatin1String("WXLBlackBox")},
    {&kWXLStorageHistoryKey, &kWXLStorageHistory, QLatin1String("WXLBlackBox")},
    {&kWXLOrientationHistoryKey, &kWXLOrientationHistory, QLatin1String("WXLBlackBox")},
    {&kUserEventReportKey, &kWXLUserEventsHistory, QLatin1String("WXLEventReporter")},
    {&kNetworkRequestReportKey, &kWXLNetworkRequestHistory, QLatin1String("WXLNetworkRequestReporter")},
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
    for (const auto &[stored, reported, reader] : histories)
        insertIfPresent(data, *reported, historySnapshot(m_repository, *stored, reader));
}

} // namespace wexel

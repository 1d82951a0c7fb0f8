#include "API/WXLAPIReport.h"

#include <cmath>
#include <type_traits>

#include "API/ReportHistories.h"
#include "Business/ReportKeys.h"

namespace wexel {

namespace {

using Report = WXLAPIReport;

/// A gathered value, its place in the report and its place in the JSON object (none: not written by this table).
template <typename Value>
struct Field {
    const QString *key;
    std::optional<Value> Report::*member;
    QLatin1String jsonKey;
};

const Field<QString> textFields[] = {
    {&kWXLUserInput, &Report::title, QLatin1String("title")},
    {&kWXLUserInput, &Report::reportDesc, QLatin1String("description")},
    {&kWXLUserEmail, &Report::userEmail, QLatin1String("tester_email")},
    {&kWXLTimeZone, &Report::timeZone, QLatin1String("timezone")},
    {&kWXLLocale, &Report::locale, QLatin1String("locale")},
    {&kWXLIssueReportedTime, &Report::issueReportedTime, QLatin1String("issue_reported_time")},
    {&kWXLSystemVersion, &Report::operatingSystemVersion, QLatin1String("os_version")},
    {&kWXLAppVersion, &Report::appVersion, QLatin1String("app_version")},
    {&kWXLBuildVersion, &Report::buildVersion, QLatin1String("build_version")},
    {&kWXLModelName, &Report::device, QLatin1String("device")},
    {&kWXLBatteryStatus, &Report::batteryStatus, QLatin1String("battery_status")},
    {&kWXLBatteryLevel, &Report::batteryLevel, QLatin1String("battery_level")},
    {&kWXLAvailableDiskSpace, &Report::availableDiskSpace, QLatin1String("available_disk_space")},
    {&kWXLNetworkName, &Report::networkName, QLatin1String("network_name")},
    {&kWXLNetworkType, &Report::networkType, QLatin1String("network_type")},
    {&kWXLViewControllerName, &Report::viewControllerName, QLatin1String("current_view")},
    {&kWXLSystemBuildVersion, &Report::operatingSystemBuildVersion, QLatin1String("os_build_version")},
    {&kWXLWexelSDKVersion, &Report::wexelSDKVersion, QLatin1String("sdk_version")},
};

const Field<double> numberFields[] = {
    {&kWXLUsedDiskSpace, &Report::usedDiskSpace, QLatin1String("used_disk_space")},
    {&kWXLUsedMemory, &Report::usedMemory, QLatin1String("used_memory")},
    {&kWXLUsedApplicationMemory, &Report::usedApplicationMemory, QLatin1String("used_application_memory")},
    {&kWXLAvailableMemory, &Report::availableMemory, QLatin1String("available_memory")},
    {&kWXLDeviceOrientation, &Report::deviceOrientation, QLatin1String("device_orientation")},
    {&kWXLScreenHeight, &Report::screenHeight, QLatin1String("screen_height")},
    {&kWXLScreenWidth, &Report::screenWidth, QLatin1String("screen_width")},
    {&kWXLAuthentication, &Report::authentication, QLatin1String("authentication")},
};

const struct {
    const QString *key;
    Report::History Report::*member;
} historyFields[] = {
    {&kWXLSessionStateHistory, &Report::sessionStateHistory},
    {&kWXLBatteryHistory, &Report::batteryHistory},
    {&kWXLNetworkHistory, &Report::networkHistory},
    {&kWXLCpuHistory, &Report::cpuHistory},
    {&kWXLMemoryUsedByDeviceHistory, &Report::memoryUsedByDeviceHistory},
    {&kWXLMemoryUsedByAppHistory, &Report::memoryUsedByAppHistory},
    {&kWXLStorageHistory, &Report::storageHistory},
    {&kWXLOrientationHistory, &Report::orientationHistory},
    {&kWXLUserEventsHistory, &Report::userEventsHistory},
    {&kWXLNetworkRequestHistory, &Report::networkRequestHistory},
};

/// In ascending order of the name, which is the order of the report.
const struct {
    const QString *key;
    QLatin1String name;
} permissionFields[] = {
    {&kWXLCalendarPermission, QLatin1String("calendar")},
    {&kWXLCameraPermission, QLatin1String("camera")},
    {&kWXLContactsPermission, QLatin1String("contacts")},
    {&kWXLLocationPermission, QLatin1String("location")},
    {&kWXLMediaLibraryPermission, QLatin1String("medialibrary")},
    {&kWXLMicrophonePermission, QLatin1String("microphone")},
    {&kWXLPhotoLibraryPermission, QLatin1String("photolibrary")},
};

// A value that a host replaced by one of another type is dropped rather than sent as something else.

bool holds(const QVariant &value, std::type_identity<QString>)
{
    return value.typeId() == QMetaType::QString;
}

bool holds(const QVariant &value, std::type_identity<QVariantList>)
{
    return value.typeId() == QMetaType::QVariantList;
}

bool holds(const QVariant &value, std::type_identity<double>)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return std::isfinite(value.toDouble()); // JSON has no other numbers
    default:
        return false;
    }
}

template <typename Value>
std::optional<Value> taken(const QVariantMap &gathered, const QString &key)
{
    const QVariant value = gathered.value(key);
    return holds(value, std::type_identity<Value>()) ? std::optional(value.value<Value>()) : std::nullopt;
}

QJsonArray permissionsArray(const QList<QPair<QString, QString>> &permissions)
{
    QJsonArray array;
    for (const auto &[name, state] : permissions)
        array.append(QJsonObject{{QStringLiteral("name"), name}, {QStringLiteral("state"), state}});
    return array;
}

} // namespace

WXLAPIReport::WXLAPIReport(const WXLWexelReportData &reportData)
{
    populateWith(reportData);
}

void WXLAPIReport::populateWith(const WXLWexelReportData &reportData)
{
    const QVariantMap gathered = reportData.gatheredDataDict.value_or(QVariantMap());
    for (const auto &field : textFields)
        this->*field.member = taken<QString>(gathered, *field.key);
    for (const auto &field : numberFields)
        this->*field.member = taken<double>(gathered, *field.key);
    for (const auto &field : historyFields)
        this->*field.member = taken<QVariantList>(gathered, *field.key);

    QList<QPair<QString, QString>> granted;
    for (const auto &field : permissionFields) {
        if (const auto state = taken<QString>(gathered, *field.key))
            granted.append({field.name, *state});
    }
    if (!granted.isEmpty())
        permissions = granted;

    quickFacts = reportData.quickFacts;
    if (reportData.screenshotFile)
        screenshotFile = WXLAPIReportFile::initWithWexelFile(*reportData.screenshotFile);
    files = QList<WXLAPIReportFile>();
    for (const auto &file : reportData.attachedFiles.value_or(QList<std::shared_ptr<WXLWexelFile>>())) {
        if (file)
            files->append(WXLAPIReportFile::initWithWexelFile(*file));
    }
}

QJsonObject WXLAPIReport::dictValues() const
{
    QJsonObject values{
        {QStringLiteral("platform"), QStringLiteral("iOS")},
        {QStringLiteral("os"), QStringLiteral("iOS")},
        {QStringLiteral("report_type"), QStringLiteral("manual")},
        {QStringLiteral("blackbox"), blackBoxObject(*this)},
        {QStringLiteral("log"), logObject(*this)},
    };
    for (const auto &field : textFields) {
        if (const auto &text = this->*field.member)
            values.insert(field.jsonKey, *text);
    }
    for (const auto &field : numberFields) {
        if (const auto &number = this->*field.member)
            values.insert(field.jsonKey, *number);
    }
    if (quickFacts)
        values.insert(QStringLiteral("quick_facts"), *quickFacts);
    if (permissions)
        values.insert(QStringLiteral("permissions"), permissionsArray(*permissions));
    if (const QJsonArray sessions = sessionsArray(*this); !sessions.isEmpty())
        values.insert(QStringLiteral("sessions"), sessions);
    return values;
}

} // namespace wexel

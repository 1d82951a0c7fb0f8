#include "Presentation/InspectBug/WXLInspectBugVM.h"

#include <cmath>
#include <utility>

#include <QCoreApplication>

#include <Wexel/WXLWexelReportData.h>

#include "Business/ReportKeys.h"
#include "Presentation/InspectBug/DeviceNames.h"
#include "Presentation/ReportCompose/AttachedImages.h"

namespace wexel {

namespace {

/// Any number as a whole one; 0 for what is none, as a share of a total of 0 is not.
qint32 whole(double number)
{
    return std::isfinite(number) && std::abs(number) < 2147483647.0 ? static_cast<qint32>(number) : 0;
}

qint32 freePercent(double total, double used)
{
    return whole(std::round(100 - used * 100 / total));
}

} // namespace

WXLInspectBugVM::WXLInspectBugVM() : WXLInspectBugVM(std::make_shared<WXLWexelReportData>(QVariantMap())) { }

WXLInspectBugVM::WXLInspectBugVM(std::shared_ptr<WXLWexelReportData> reportData)
    : m_reportData(std::move(reportData))
{
}

QVariant WXLInspectBugVM::value(const QString &key) const
{
    return m_reportData->gatheredDataDict.value_or(QVariantMap()).value(key);
}

QString WXLInspectBugVM::text(const QString &key) const
{
    return value(key).toString();
}

QString WXLInspectBugVM::osVersion() const
{
    return text(kWXLSystemVersion);
}

QString WXLInspectBugVM::device() const
{
    return deviceName(text(kWXLModelName)).value_or(QString());
}

QString WXLInspectBugVM::buildVersion() const
{
    return text(kWXLBuildVersion);
}

QString WXLInspectBugVM::appVersion() const
{
    return QStringLiteral("%1 (%2)").arg(text(kWXLAppVersion), buildVersion());
}

QString WXLInspectBugVM::networkType() const
{
    return text(kWXLNetworkType);
}

QString WXLInspectBugVM::network() const
{
    const QString type = networkType();
    QString words;
    if (type.toLower() == u"offline") {
        words = QCoreApplication::translate("Wexel", "Offline");
    } else if (type == u"wifi") {
        const QVariant name = value(kWXLNetworkName);
        words = QStringLiteral("%1 \u2022 %2")
                    .arg(QCoreApplication::translate("Wexel", "WiFi"),
                         name.isValid() ? name.toString() : QStringLiteral("(null)"));
    } else {
        words = QStringLiteral("%1 %2").arg(QCoreApplication::translate("Wexel", "Cellular"),
                                            radioGeneration(type));
    }
    return words.isEmpty() ? QCoreApplication::translate("Wexel", "NOT AVAILABLE") : words;
}

QString WXLInspectBugVM::currentView() const
{
    return text(kWXLViewControllerName);
}

QString WXLInspectBugVM::locale() const
{
    return text(kWXLLocale).replace(u'_', u'-');
}

QString WXLInspectBugVM::availableMemory() const
{
    const double total = value(kWXLAvailableMemory).toDouble();
    const double used = value(kWXLUsedMemory).toDouble();
    return QStringLiteral("%1% \u2022 %2 out of %3 MB")
        .arg(freePercent(total, used))
        .arg(whole(std::round(total - used)))
        .arg(whole(total));
}

QString WXLInspectBugVM::availableStorage() const
{
    constexpr int megabytesInAGigabyte = 1024;
    const double total = value(kWXLAvailableDiskSpace).toDouble();
    const double used = value(kWXLUsedDiskSpace).toDouble();
    return QStringLiteral("%1% \u2022 %2 out of %3 GB")
        .arg(freePercent(total, used))
        .arg(whole(std::round(total - used)) / megabytesInAGigabyte)
        .arg(total / megabytesInAGigabyte, 0, 'f', 1);
}

QString WXLInspectBugVM::resolution() const
{
    return QStringLiteral("%1 \u2715 %2 px").arg(text(kWXLScreenHeight), text(kWXLScreenWidth));
}

QString WXLInspectBugVM::sdkVersion() const
{
    return text(kWXLWexelSDKVersion);
}

QString WXLInspectBugVM::quickFacts() const
{
    const QString facts = m_reportData->quickFacts.value_or(QString());
    return facts.isEmpty() ? QCoreApplication::translate("Wexel", "Quick Facts not enabled.") : facts;
}

QStringList WXLInspectBugVM::grantedPermissions() const
{
    const std::pair<QString, QString> permissions[]{
        {kWXLCalendarPermission, QStringLiteral("Access to calendar")},
        {kWXLCameraPermission, QStringLiteral("Access to camera")},
        {kWXLContactsPermission, QStringLiteral("Access to contacts")},
        {kWXLLocationPermission, QStringLiteral("Access to location")},
        {kWXLMediaLibraryPermission, QStringLiteral("Access to medialibrary")},
        {kWXLMicrophonePermission, QStringLiteral("Access to microphone")},
        {kWXLPhotoLibraryPermission, QStringLiteral("Access to photolibrary")},
    };
    QStringList granted;
    for (const auto &[key, name] : permissions) {
        if (value(key).isValid())
            granted.append(name);
    }
    return granted;
}

QString WXLInspectBugVM::permissionsDescription() const
{
    return grantedPermissions().isEmpty()
        ? QCoreApplication::translate("Wexel", "ALL PERMISSIONS WERE EITHER DENIED OR NOT ASKED FOR.")
        : QCoreApplication::translate("Wexel", "ALL OTHERS WERE EITHER DENIED OR NOT ASKED FOR.");
}

QList<QImage> WXLInspectBugVM::attachments() const
{
    return attachedImages(*m_reportData);
}

} // namespace wexel

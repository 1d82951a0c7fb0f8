#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QPair>
#include <QString>
#include <QVariantList>

#include <Wexel/WXLWexelReportData.h>

namespace wexel {

/// A file of a report on its way to the backend.
struct WXLAPIReportFile {
    QByteArray data;
    QString fileName;

    [[nodiscard]] static WXLAPIReportFile initWithWexelFile(const WXLWexelFile &file)
    {
        return {file.data(), file.name()};
    }
};

/// The upload form of one report. Every field may be absent; what is absent is left out of the JSON.
class WXLAPIReport
{
public:
    using Text = std::optional<QString>;
    using Number = std::optional<double>;
    using History = std::optional<QVariantList>; ///< of records, see WXLBlackBoxObject

    explicit WXLAPIReport(const WXLWexelReportData &reportData);

    /// Takes every field from the report data.
    void populateWith(const WXLWexelReportData &reportData);
    /// The report's JSON object, without the addresses of its uploaded files. An element of a history is written
    /// only when every field it uses is present.
    [[nodiscard]] QJsonObject dictValues() const;

    Text active; ///< never filled nor written
    Text quickFacts;
    Text appVersion;
    Text buildVersion;
    Text device; ///< hardware model identifier
    std::optional<QList<WXLAPIReportFile>> files; ///< the attachments, without the screenshot
    Text locale;
    Text issueReportedTime;
    Text operatingSystemVersion;
    std::optional<QList<QPair<QString, QString>>> permissions; ///< name and state, sorted by name
    Text reportDesc;
    Text userEmail;
    std::optional<WXLAPIReportFile> screenshotFile;
    Text timeZone;
    Text title; ///< the same text as the description
    Text batteryStatus;
    Text batteryLevel;
    Number usedDiskSpace; ///< MB
    Text availableDiskSpace; ///< MB
    Number usedMemory; ///< MB
    Number availableMemory; ///< MB
    Number usedApplicationMemory; ///< MB
    Number deviceOrientation;
    Number screenWidth; ///< pixels
    Number screenHeight; ///< pixels
    Text networkName;
    Text networkType;
    Text viewControllerName;
    Text startDate; ///< never filled nor written
    History cpuHistory;
    History memoryUsedByDeviceHistory;
    History memoryUsedByAppHistory;
    History storageHistory;
    History batteryHistory;
    History networkHistory;
    History orientationHistory;
    Number authentication; ///< 0 or 1
    Text operatingSystemBuildVersion;
    History sessionStateHistory;
    History userEventsHistory;
    Text wexelSDKVersion;
    History networkRequestHistory;
};

} // namespace wexel

#pragma once

#include <memory>
#include <optional>

#include <QImage>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <qqml.h>

namespace wexel {

class WXLWexelReportData;

/// What a report will carry, in words. Everything is read from the report when it is asked for. Main thread only.
class WXLInspectBugVM
{
    Q_GADGET
    QML_VALUE_TYPE(inspectedBug)
    Q_PROPERTY(QString osVersion READ osVersion)
    Q_PROPERTY(QString device READ device)
    Q_PROPERTY(QString appVersion READ appVersion)
    Q_PROPERTY(QString network READ network)
    Q_PROPERTY(QString currentView READ currentView)
    Q_PROPERTY(QString locale READ locale)
    Q_PROPERTY(QString availableMemory READ availableMemory)
    Q_PROPERTY(QString availableStorage READ availableStorage)
    Q_PROPERTY(QString resolution READ resolution)
    Q_PROPERTY(QString sdkVersion READ sdkVersion)
    Q_PROPERTY(QString quickFacts READ quickFacts)
    Q_PROPERTY(QStringList grantedPermissions READ grantedPermissions)
    Q_PROPERTY(QString permissionsDescription READ permissionsDescription)
    Q_PROPERTY(QList<QImage> attachments READ attachments)

public:
    WXLInspectBugVM(); ///< of an empty report
    explicit WXLInspectBugVM(std::shared_ptr<WXLWexelReportData> reportData);

    // Empty where the report has no such value.
    [[nodiscard]] QString osVersion() const;
    /// The name of a known model.
    [[nodiscard]] QString device() const;
    [[nodiscard]] QString buildVersion() const;
    [[nodiscard]] QString appVersion() const; ///< "version (build)"
    [[nodiscard]] QString networkType() const;
    [[nodiscard]] QString network() const; ///< in words, never empty
    [[nodiscard]] QString currentView() const;
    [[nodiscard]] QString locale() const; ///< as "en-US"
    [[nodiscard]] QString availableMemory() const; ///< free share, free and total in MB
    [[nodiscard]] QString availableStorage() const; ///< free share, whole free and total in GB
    [[nodiscard]] QString resolution() const; ///< height by width, in pixels
    [[nodiscard]] QString sdkVersion() const;

    [[nodiscard]] QString quickFacts() const; ///< the host's words, or that there are none
    [[nodiscard]] QStringList grantedPermissions() const;
    [[nodiscard]] QString permissionsDescription() const; ///< of the permissions that are not listed
    [[nodiscard]] QList<QImage> attachments() const;

private:
    [[nodiscard]] QVariant value(const QString &key) const;
    [[nodiscard]] QString text(const QString &key) const;

    std::shared_ptr<WXLWexelReportData> m_reportData;
};

} // namespace wexel

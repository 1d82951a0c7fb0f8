#include "Presentation/ReportCompose/WXLReportComposeViewModel.h"

#include <utility>

#include <QCoreApplication>

#include <Wexel/WXLWexelReportData.h>

#include "Business/ReportKeys.h"
#include "Platform/NotificationCenter.h"
#include "Presentation/Helpers/WXLBranding.h"
#include "Presentation/ReportCompose/AttachedImages.h"

namespace wexel {

WXLReportComposeViewModel::WXLReportComposeViewModel(std::shared_ptr<WXLWexelReportData> reportData,
                                                     NotificationCenter &notifications)
    : m_reportData(std::move(reportData))
    , m_notifications(notifications)
    , m_observer(
          notifications.addObserver(BrandingUpdatedNotification, [this] { brandingUpdatedNotification(); }))
{
}

WXLReportComposeViewModel::~WXLReportComposeViewModel()
{
    m_notifications.removeObserver(m_observer);
}

void WXLReportComposeViewModel::brandingUpdatedNotification() const
{
    if (brandingRefresCallback)
        brandingRefresCallback();
}

QString WXLReportComposeViewModel::placeholder()
{
    return QCoreApplication::translate("Wexel", "Describe the bug and tap Submit");
}

void WXLReportComposeViewModel::didPressSubmitButton(const QString &description,
                                                     const std::optional<QString> &email) const
{
    QVariantMap gathered = m_reportData->gatheredDataDict.value_or(QVariantMap());
    if (description != placeholder())
        gathered.insert(kWXLUserInput, description);
    if (email)
        gathered.insert(kWXLUserEmail, *email);
    m_reportData->gatheredDataDict = gathered;
    submitButtonPressed(m_reportData, email);
}

void WXLReportComposeViewModel::didPressBackButton(const std::optional<QString> &description) const
{
    backButtonPressed(description);
}

void WXLReportComposeViewModel::didPressInspectButton() const
{
    onDidPressInspectButton();
}

QList<QImage> WXLReportComposeViewModel::attachments() const
{
    return attachedImages(*m_reportData);
}

void WXLReportComposeViewModel::didPressDeleteAttachment(int /*index*/) const
{
    onDidPressDeleteAttachment(m_reportData->screenshotFile);
    m_reportData->screenshotFile = nullptr;
}

} // namespace wexel

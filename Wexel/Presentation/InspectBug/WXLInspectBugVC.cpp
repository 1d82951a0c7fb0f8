#include "Presentation/InspectBug/WXLInspectBugVC.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>

#include "Presentation/Helpers/WXLBranding.h"

namespace wexel {

WXLInspectBugVC::WXLInspectBugVC(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

void WXLInspectBugVC::viewDidLoad(std::unique_ptr<WXLInspectBugVM> viewModel, const WXLBranding &branding)
{
    m_viewModel = std::move(viewModel);
    m_backgroundColor = branding.backgroundColor;
    Q_EMIT loaded();
}

QString WXLInspectBugVC::os() const
{
    return m_viewModel ? QStringLiteral("iOS %1").arg(m_viewModel->osVersion()) : QString();
}

QString WXLInspectBugVC::device() const
{
    return m_viewModel ? m_viewModel->device() : QString();
}

QString WXLInspectBugVC::appVersion() const
{
    return m_viewModel ? m_viewModel->appVersion() : QString();
}

QString WXLInspectBugVC::network() const
{
    return m_viewModel ? m_viewModel->network() : QString();
}

QString WXLInspectBugVC::currentView() const
{
    return m_viewModel ? m_viewModel->currentView() : QString();
}

QString WXLInspectBugVC::locale() const
{
    return m_viewModel ? m_viewModel->locale() : QString();
}

QString WXLInspectBugVC::availableMemory() const
{
    return m_viewModel ? m_viewModel->availableMemory() : QString();
}

QString WXLInspectBugVC::availableStorage() const
{
    return m_viewModel ? m_viewModel->availableStorage() : QString();
}

QString WXLInspectBugVC::resolution() const
{
    return m_viewModel ? m_viewModel->resolution() : QString();
}

QString WXLInspectBugVC::sdkVersion() const
{
    return m_viewModel ? m_viewModel->sdkVersion() : QString();
}

bool WXLInspectBugVC::hasNetwork() const
{
    return m_viewModel && m_viewModel->network() != WXLInspectBugVM::notAvailable();
}

QList<QImage> WXLInspectBugVC::attachments() const
{
    return m_viewModel ? m_viewModel->attachments() : QList<QImage>();
}

QStringList WXLInspectBugVC::grantedPermissions() const
{
    return m_viewModel ? m_viewModel->grantedPermissions() : QStringList();
}

QString WXLInspectBugVC::permissionsDescription() const
{
    return m_viewModel ? m_viewModel->permissionsDescription() : QString();
}

QString WXLInspectBugVC::quickFacts() const
{
    return m_viewModel ? m_viewModel->quickFacts() : QString();
}

QString WXLInspectBugVC::headerText(const QList<double> &middles, double topHeaderYPosition)
{
    const QStringList sectionNames{QCoreApplication::translate("Wexel", "Attachment"),
                                   QCoreApplication::translate("Wexel", "Granted permissions"),
                                   QCoreApplication::translate("Wexel", "Quick Facts")};
    const auto passed = std::count_if(middles.begin(), middles.end(), [=](double middle) {
        return static_cast<float>(middle) <= topHeaderYPosition;
    });
    return passed > 0 ? sectionNames.value(passed - 1) : QCoreApplication::translate("Wexel", "Essentials");
}

} // namespace wexel

#include "Presentation/InspectBug/WXLInspectBugVC.h"

#include <algorithm>

#include <QCoreApplication>

#include "Presentation/Helpers/WXLBranding.h"

namespace wexel {

WXLInspectBugVC::WXLInspectBugVC(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

void WXLInspectBugVC::viewDidLoad(const WXLInspectBugVM &viewModel, const WXLBranding &branding)
{
    m_viewModel = viewModel;
    m_backgroundColor = branding.backgroundColor;
    Q_EMIT loaded();
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

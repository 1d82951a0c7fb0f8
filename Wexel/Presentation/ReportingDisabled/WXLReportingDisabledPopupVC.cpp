#include "Presentation/ReportingDisabled/WXLReportingDisabledPopupVC.h"

#include <QCoreApplication>

namespace wexel {

namespace {

/// A host's translation is text, also where it looks like mark-up; every blank of it counts.
QString escaped(const QString &text)
{
    return text.toHtmlEscaped().replace(QStringLiteral("  "), QStringLiteral("&nbsp; "));
}

} // namespace

WXLReportingDisabledPopupVC::WXLReportingDisabledPopupVC(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

QString WXLReportingDisabledPopupVC::explanation()
{
    const QString before
        = QCoreApplication::translate("Wexel", "App's administrator has disabled bug reporting for now  ");
    const QString after = QCoreApplication::translate("Wexel", "  Try restarting the app or contact admin.");
    // The gap after the owl is half a blank narrower.
    return escaped(before)
        + QStringLiteral("<img src=\"qrc:/wexel/Icons/owl.svg\" width=\"24\" height=\"24\" align=\"middle\">")
        + QStringLiteral("<span style=\"font-size:9px\">&nbsp;</span>") + escaped(after.mid(1));
}

} // namespace wexel

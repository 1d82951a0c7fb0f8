#include "Presentation/ReportingDisabled/WXLReportingDisabledPopupVC.h"

#include <QCoreApplication>

#include "Presentation/Helpers/Theme.h"

namespace wexel {

namespace {

QString beforeTheOwl()
{
    return QCoreApplication::translate("Wexel", "App's administrator has disabled bug reporting for now  ");
}

QString afterTheOwl()
{
    return QCoreApplication::translate("Wexel", "  Try restarting the app or contact admin.");
}

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
    const QString after = afterTheOwl();
    // The first character after the owl is half as large: a blank makes a narrower gap.
    const int small = qRound(Theme::scaled(9));
    const int owl = qRound(Theme::scaled(24));
    return escaped(beforeTheOwl())
        + QStringLiteral("<img src=\"image://artwork/owl/%1\" width=\"%1\" height=\"%1\" align=\"middle\">"
                         "<span style=\"font-size:%2px\">")
              .arg(owl)
              .arg(small)
        + escaped(after.left(1)).replace(u' ', QStringLiteral("&nbsp;")) + QStringLiteral("</span>")
        + escaped(after.mid(1));
}

QString WXLReportingDisabledPopupVC::spokenExplanation()
{
    return (beforeTheOwl() + afterTheOwl()).simplified();
}

} // namespace wexel

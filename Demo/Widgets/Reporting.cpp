#include "Reporting.h"

#include <QCoreApplication>

#include <Wexel/WXLWexel.h>

#include "NotePage.h"
#include "NotebookWindow.h"

using wexel::WXLWexel;
using ReportData = std::shared_ptr<wexel::WXLWexelReportData>;

namespace {

QString quickFacts(const NotebookWindow &window)
{
    const NotePage &page = *window.currentPage();
    return QCoreApplication::translate("Reporting", "Open notes: %1\nCurrent note: %2, %3\nWords in it: %4")
        .arg(window.noteCount())
        .arg(page.name(),
             page.isModified() ? QCoreApplication::translate("Reporting", "with unsaved changes")
                               : QCoreApplication::translate("Reporting", "without changes"))
        .arg(page.wordCount());
}

} // namespace

Reporting::Reporting(const NotebookWindow &window)
{
    WXLWexel::sharedInstance().setOnPrepareData([&window](const ReportData &report) {
        report->quickFacts = quickFacts(window);
        return report;
    });
    WXLWexel::startWithInvocationEvents(wexel::WexelInvocationEventMotion | wexel::WexelInvocationEventButton
                                        | wexel::WexelInvocationEventScreenshot
                                        | wexel::WexelInvocationEventRightEdgePan);
}

Reporting::~Reporting()
{
    WXLWexel::sharedInstance().setOnPrepareData({});
}

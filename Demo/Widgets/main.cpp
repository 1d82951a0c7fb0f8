#include <QApplication>

#include <Wexel/WXLWexel.h>

#include "Appearance.h"
#include "NotePage.h"
#include "NotebookWindow.h"

using namespace wexel;

namespace {

QString quickFacts(const NotebookWindow &window)
{
    const NotePage &page = *window.currentPage();
    const QString facts
        = NotebookWindow::tr("Open notes: %1\nCurrent note: %2\nIts words: %3")
              .arg(QString::number(window.noteCount()), page.name(), QString::number(page.wordCount()));
    const QString author = window.preferences().author;
    return author.isEmpty() ? facts : facts + NotebookWindow::tr("\nAuthor: %1").arg(author);
}

/// \param window adds its facts to the reports, so it must live until the last one
void startReporting(const NotebookWindow &window)
{
    WXLWexel::sharedInstance().setOnPrepareData([&window](const std::shared_ptr<WXLWexelReportData> &report) {
        report->quickFacts = quickFacts(window);
        return report;
    });
    WXLWexel::startWithInvocationEvents(WexelInvocationEventMotion | WexelInvocationEventButton
                                        | WexelInvocationEventScreenshot | WexelInvocationEventRightEdgePan);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("wexel-demo-editor"));
    QApplication::setApplicationDisplayName(QStringLiteral("Fieldnotes"));
    QApplication::setApplicationVersion(QStringLiteral("2.1.0"));
    applyAppearance(application);
    NotebookWindow window;
    window.openNote(QStringLiteral(":/Notes/River walk.md"));
    window.openNote(QStringLiteral(":/Notes/Welcome.md"));
    window.show();
    startReporting(window);
    for (const QString &path : QApplication::arguments().mid(1))
        window.openNote(path);
    const int result = QApplication::exec();
    WXLWexel::sharedInstance().setOnPrepareData({});
    return result;
}

// SaveBenchmark DOCUMENTS FILE...   saves one report for each file, which becomes its screenshot, below DOCUMENTS as a
// host would, and prints "save_us N" for each.

#include <cstdio>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>

#include "Business/ReportKeys.h"
#include "OfflineManager/WXLFileManager.h"

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("wexel=false"));
    QStringList files = QCoreApplication::arguments().mid(1);
    if (files.size() < 2)
        return 2;
    wexel::WXLFileManager manager(QUrl::fromLocalFile(files.takeFirst()));
    for (const QString &file : files) {
        wexel::WXLWexelReportData report(
            {{wexel::kWXLUserInput, QStringLiteral("A report of the benchmark")}});
        report.screenshotFile = wexel::WXLWexelFile::initWithFileURL(QUrl::fromLocalFile(file));
        if (!report.screenshotFile)
            qFatal("cannot read %s", qPrintable(file));
        QElapsedTimer timer;
        timer.start();
        if (!manager.saveDataForReportData(report))
            qFatal("not saved");
        std::printf("save_us %lld\n", static_cast<long long>(timer.nsecsElapsed() / 1000));
    }
}

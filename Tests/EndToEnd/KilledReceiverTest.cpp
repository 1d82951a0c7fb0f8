#include <gtest/gtest.h>

#include <iostream>

#include <QCryptographicHash>
#include <QJsonObject>
#include <QRandomGenerator>

#include "NumberedReport.h"
#include "OfflineManager/WXLUploader.h"
#include "Platform/CapturedLog.h"
#include "Support/ReceiverProcess.h"
#include "Support/Reports.h"
#include "Support/Wait.h"
#include "Support/World.h"

using namespace wexel;

namespace {

constexpr int sentReports = 100;
constexpr int killCount = 25;

/// One file a report: with several, a failed one followed by a good one counts as sent.
std::shared_ptr<WXLWexelReportData> numberedReport(int number)
{
    auto report = makeReport(NumberedReport::description(number));
    report->screenshotFile = std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"),
                                                            NumberedReport::attachment(number));
    return report;
}

void expectEachWithItsScreenshot(const QJsonArray &reports)
{
    QSet<QString> descriptions;
    for (const auto &value : reports) {
        const auto report = value.toObject();
        const QString text = report.value(u"report").toObject().value(u"description").toString();
        descriptions.insert(text);
        const auto bytes = NumberedReport::attachment(NumberedReport::numberIn(text.toUtf8()));
        EXPECT_EQ(report.value(u"screenshot").toObject().value(u"sha256").toString().toUtf8(),
                  QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex())
            << qPrintable(text);
    }
    EXPECT_EQ(descriptions.size(), sentReports);
    EXPECT_EQ(reports.size(), sentReports) << "some arrived twice";
}

TEST(KilledReceiver, GetsEveryReportInTheEnd)
{
    const QTemporaryDir folder;
    ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    const CapturedLog log;
    World &world = World::make(receiver.url());
    world.authorize();
    auto &uploader = *new WXLUploader(world.fileManager, world.api, world.repository, world.scheduler,
                                      world.notifications); // lives for the process, as its world does
    for (int number = 1; number <= sentReports; ++number)
        uploader.uploadData(numberedReport(number));
    ASSERT_TRUE(spinUntil([&] { return !world.storedReports().isEmpty(); }));

    QRandomGenerator random(20'240'608);
    int kills = 0;
    int retries = 0;
    const auto retryArmed = [&] { return !world.scheduler.armed().empty(); };
    while (!world.storedReports().isEmpty()) {
        // At the end nothing is in the way of the rest.
        const auto lines
            = log.lines().size() + (kills < killCount ? random.bounded(1, 60) : sentReports * 100);
        ASSERT_TRUE(spinUntil(
            [&] { return retryArmed() || world.storedReports().isEmpty() || log.lines().size() >= lines; }));
        if (retryArmed()) {
            ++retries;
            world.scheduler.advance(std::chrono::seconds(world.scheduler.armed().front()));
        } else if (kills < killCount) {
            ++kills;
            receiver.kill();
            receiver.start();
        }
    }
    ASSERT_TRUE(
        spinUntil([&] { return log.lines().last().contains(QStringLiteral("completed succesfully")); }));
    const auto reports = receiver.reports();
    std::cout << sentReports << " reports over " << kills << " kills and " << retries << " retries\n";
    EXPECT_GT(kills, 5);
    expectEachWithItsScreenshot(reports);
}

} // namespace

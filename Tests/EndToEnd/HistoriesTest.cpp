#include <gtest/gtest.h>

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>

#include "Business/HistoryKeys.h"
#include "Business/NetworkRequestRecord.h"
#include "Business/TouchRecord.h"
#include "InstalledHost.h"
#include "Support/Histories.h"
#include "Support/ReceiverProcess.h"
#include "Support/ScriptedServer.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

QDateTime timeOf(const QJsonValue &element, const char *key)
{
    return QDateTime::fromString(element[QLatin1String(key)].toString(), Qt::ISODateWithMs);
}

// Killed in the middle of recording and started again, it sends what happened before, all but the last second.
TEST(KilledHost, KeepsItsHistories)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    const InstalledHost host(receiver.url());
    ScriptedServer server(
        [](const ScriptedServer::Request &) { return ScriptedServer::Answer{.body = "[1]"}; });
    const QString url = server.url().replace(QStringLiteral("127.0.0.1"), QStringLiteral("localhost"));

    const auto process = host.run({QStringLiteral("widgets"), QStringLiteral("start"), QStringLiteral("tap"),
                                   QStringLiteral("get"), url + QStringLiteral("menu")});
    ASSERT_TRUE(process->waitForOutput("got 200")) << process->output().constData();
    WXLAppRepository store(host.userDefaults());
    const auto hasStored = [&] {
        const auto requests = storedRecordsOf<NetworkRequestRecord>(store, kNetworkRequestReportKey);
        return storedRecordsOf<Record>(store, kWXLCpuHistoryKey).size() >= 5
            && storedRecordsOf<TouchRecord>(store, kUserEventReportKey).size() == 1 && requests.size() == 1
            && requests[0]->statusCode == QStringLiteral("200");
    };
    ASSERT_TRUE(spinUntil(hasStored))
        << storedRecordsOf<Record>(store, kWXLCpuHistoryKey).size() << " samples, "
        << storedRecordsOf<TouchRecord>(store, kUserEventReportKey).size() << " taps, "
        << storedRecordsOf<NetworkRequestRecord>(store, kNetworkRequestReportKey).size() << " requests\n"
        << process->output().constData();
    process->kill();
    const QDateTime killed = QDateTime::currentDateTime();
    store.setClientAuthorized(false); // the report waits for the token

    const auto second
        = host.run({QStringLiteral("core"), QStringLiteral("quit-when"), QString::fromUtf8(allSent),
                    QStringLiteral("start"), QStringLiteral("report"), QStringLiteral("1")});
    ASSERT_TRUE(second->waitForEnd()) << second->output().constData();
    const QJsonArray reports = receiver.reports();
    ASSERT_EQ(reports.size(), 1) << second->output().constData();
    const QJsonObject report = reports[0].toObject().value(u"report").toObject();

    const QJsonObject blackBox = report.value(u"blackbox").toObject();
    for (const char *key :
         {"cpu_usage_history", "application_memory_usage_history", "memory_usage_history"}) {
        int before = 0;
        QDateTime last;
        for (const QJsonValue &sample : blackBox.value(QLatin1String(key)).toArray()) {
            EXPECT_GT(sample[u"value"].toString().toDouble(), -1) << key;
            if (timeOf(sample, "time_occurred") <= killed) {
                ++before;
                last = timeOf(sample, "time_occurred");
            }
        }
        EXPECT_GE(before, 5) << key;
        // The last second, and the half second between two samples.
        EXPECT_LE(last.msecsTo(killed), 1600) << key;
    }
    EXPECT_FALSE(blackBox.value(u"network_usage_history").toArray().isEmpty());
    EXPECT_FALSE(blackBox.value(u"device_orientation_history").toArray().isEmpty());
    EXPECT_FALSE(blackBox.contains(u"disk_space_usage_history"));

    const QJsonArray sessions = report.value(u"sessions").toArray();
    ASSERT_FALSE(sessions.isEmpty());
    EXPECT_EQ(sessions[0][u"state"].toString(), QStringLiteral("0"));
    EXPECT_LT(timeOf(sessions[0], "time_occurred"), killed);

    const QJsonObject log = report.value(u"log").toObject();
    const QJsonArray taps = log.value(u"user_taps").toArray();
    ASSERT_EQ(taps.size(), 1);
    EXPECT_EQ(taps[0][u"class_name"].toString(), QStringLiteral("QPushButton"));
    EXPECT_EQ(taps[0][u"view"].toString(), QStringLiteral("QWidget"));
    const QJsonArray requests = log.value(u"network_requests").toArray();
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0][u"url"].toString(), url + QStringLiteral("menu"));
    EXPECT_EQ(requests[0][u"statuc_code"].toString(), QStringLiteral("200"));
    EXPECT_EQ(requests[0][u"response_body"].toString(), QStringLiteral("[1]"));
}

} // namespace

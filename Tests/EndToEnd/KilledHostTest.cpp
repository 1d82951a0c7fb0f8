#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <set>

#include <QCryptographicHash>
#include <QJsonObject>
#include <QRandomGenerator>

#include "InstalledHost.h"
#include "NumberedReport.h"
#include "Support/ReceiverProcess.h"

using namespace wexel;

namespace {

constexpr int reportCount = 100;
constexpr int bytesPerStoredReport = 400; // of the log, when a pass finds it

QStringList commandsFor(const std::set<int> &kept)
{
    QStringList commands{QStringLiteral("core"), QStringLiteral("start")};
    for (int number = 1; number <= reportCount; ++number) {
        if (!kept.contains(number))
            commands << QStringLiteral("report") << QString::number(number);
    }
    return commands;
}

/// The numbers that the host promised to be on disk, in its complete lines.
std::set<int> keptNumbers(const QByteArray &output)
{
    std::set<int> numbers;
    const auto lines = output.left(output.lastIndexOf('\n') + 1).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("kept "))
            numbers.insert(line.mid(5).toInt());
    }
    return numbers;
}

QByteArray sha256(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

/// How often each number arrived; checks that each came with its own attachment.
std::map<int, int> arrivals(const ReceiverProcess &receiver)
{
    std::map<int, int> counts;
    const auto reports = receiver.reports();
    for (const auto &value : reports) {
        const QJsonObject report = value.toObject();
        const int number = NumberedReport::numberIn(
            report.value(u"report").toObject().value(u"description").toString().toUtf8());
        ++counts[number];
        EXPECT_EQ(report.value(u"files")[0].toObject().value(u"sha256").toString().toUtf8(),
                  sha256(NumberedReport::attachment(number)))
            << "report " << number;
    }
    return counts;
}

// Whatever the host said to be kept is not sent again by the next run, so a report lost after that never arrives.
TEST(KilledHost, LosesNoReportThatWasKept)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    const InstalledHost host(receiver.url());
    QRandomGenerator random(20'240'607);
    std::set<int> kept;
    int kills = 0;
    for (; static_cast<int>(kept.size()) < reportCount; ++kills) {
        ASSERT_LT(kills, 200) << "only " << kept.size() << " reports were kept";
        // The log of what earlier runs left comes first; a host that were always killed within it got no further.
        const auto left = host.storedReports().size();
        const auto enough = random.bounded(static_cast<int>(left) * bytesPerStoredReport + 12'000);
        const auto process = host.run(commandsFor(kept));
        ASSERT_TRUE(process->waitForOutput(enough, allSent)) << process->output().constData();
        process->kill();
        kept.merge(keptNumbers(process->output()));
    }
    host.drain();

    const auto counts = arrivals(receiver);
    int duplicates = 0;
    for (const auto &[number, count] : counts)
        duplicates += count - 1;
    std::cout << reportCount << " reports over " << kills << " kills, " << duplicates << " arrived twice\n";
    EXPECT_EQ(counts.size(), reportCount);
    EXPECT_EQ(counts.begin()->first, 1);
    EXPECT_EQ(counts.rbegin()->first, reportCount);
    EXPECT_EQ(host.storedReports(), QStringList());
}

} // namespace

#include <gtest/gtest.h>

#include <QDateTime>
#include <QFile>
#include <QImage>
#include <QJsonObject>
#include <QProcess>

#include "InstalledHost.h"
#include "Support/ReceiverProcess.h"

using namespace wexel;

namespace {

struct Journey : testing::Test {
    QTemporaryDir folder;

    [[nodiscard]] QString data() const { return folder.filePath(QStringLiteral("data")); }

    /// A host that sends one report and leaves when the log has that line.
    static void sendOne(const InstalledHost &host, const QString &until)
    {
        const auto process
            = host.run({QStringLiteral("core"), QStringLiteral("quit-when"), until, QStringLiteral("start"),
                        QStringLiteral("report"), QStringLiteral("1")});
        EXPECT_TRUE(process->waitForEnd()) << process->output().constData();
        EXPECT_TRUE(process->leftCleanly()) << process->output().constData();
        lastOutput = process->output();
    }
    static inline QByteArray lastOutput;
};

const QString sent = QString::fromUtf8(allSent);

void expectPlausibleFacts(const QJsonObject &report)
{
    for (const auto &[key, text] : {std::pair{"os", "iOS"},
                                    {"platform", "iOS"},
                                    {"report_type", "manual"},
                                    {"app_version", "2.5"},
                                    {"build_version", "77"},
                                    {"sdk_version", "1.0.0"},
                                    {"title", "It broke"},
                                    {"description", "It broke"}})
        EXPECT_EQ(report.value(QLatin1String(key)).toString(), QLatin1String(text)) << key;
    for (const char *key : {"os_version", "device", "locale", "timezone", "battery_level", "battery_status",
                            "available_disk_space", "current_view"})
        EXPECT_FALSE(report.value(QLatin1String(key)).toString().isEmpty()) << key;
    for (const char *key : {"used_disk_space", "available_memory", "used_memory", "used_application_memory",
                            "screen_height", "screen_width"})
        EXPECT_GT(report.value(QLatin1String(key)).toDouble(), 0) << key;
    EXPECT_LT(report.value(u"used_application_memory").toDouble(),
              report.value(u"available_memory").toDouble());
    EXPECT_LT(report.value(u"used_disk_space").toDouble(),
              report.value(u"available_disk_space").toString().toDouble());
    const auto time
        = QDateTime::fromString(report.value(u"issue_reported_time").toString(), Qt::ISODateWithMs);
    EXPECT_LT(std::abs(time.secsTo(QDateTime::currentDateTime())), 60);
    EXPECT_TRUE(report.value(u"device_orientation").isDouble());
    EXPECT_TRUE(report.value(u"authentication").isDouble());
    for (auto entry = report.begin(); entry != report.end(); ++entry)
        EXPECT_FALSE(entry.value().isNull()) << qPrintable(entry.key());
}

TEST_F(Journey, AnAutomaticReportCarriesWhatIsKnown)
{
    const ReceiverProcess receiver(data());
    const InstalledHost host(receiver.url());
    host.authorize();
    const auto process
        = host.run({QStringLiteral("widgets"), QStringLiteral("quit-when"), sent, QStringLiteral("start"),
                    QStringLiteral("screenshot"), QStringLiteral("It broke")});
    ASSERT_TRUE(process->waitForEnd()) << process->output().constData();

    const auto reports = receiver.reports();
    ASSERT_EQ(reports.size(), 1) << process->output().constData();
    const QJsonObject received = reports[0].toObject();
    EXPECT_EQ(received.value(u"bundle_id").toString(), InstalledHost::bundleId);
    const QJsonObject report = received.value(u"report").toObject();
    expectPlausibleFacts(report);
    for (const char *key : {"permissions", "files", "tester_email", "quick_facts"})
        EXPECT_FALSE(report.contains(QLatin1String(key))) << key;
    EXPECT_EQ(report.value(u"log"), QJsonObject());

    EXPECT_TRUE(report.value(u"screenshot_url").toString().startsWith(receiver.url()));
    const QJsonObject screenshot = received.value(u"screenshot").toObject();
    EXPECT_EQ(screenshot.value(u"name").toString(), QStringLiteral("screenshot.jpg"));
    EXPECT_EQ(QImage(screenshot.value(u"path").toString()).size(), QSize(300, 200)) << "the host's window";
}

TEST_F(Journey, AReportThatTheHostMadeCarriesItToo)
{
    const ReceiverProcess receiver(data());
    const InstalledHost host(receiver.url());
    const auto process
        = host.run({QStringLiteral("widgets"), QStringLiteral("quit-when"), sent, QStringLiteral("start"),
                    QStringLiteral("own-data"), QStringLiteral("screenshot"), QStringLiteral("It broke")});
    ASSERT_TRUE(process->waitForEnd()) << process->output().constData();
    expectPlausibleFacts(receiver.reports().at(0).toObject().value(u"report").toObject());
}

TEST_F(Journey, AReportOutlivesABackendThatIsDown)
{
    ReceiverProcess receiver(data());
    const InstalledHost host(receiver.url());
    receiver.kill();
    sendOne(host, QStringLiteral("Will retry authorization after"));
    EXPECT_EQ(host.storedReports().size(), 1);
    receiver.start();
    host.drain();
    EXPECT_EQ(receiver.descriptions().size(), 1);
    EXPECT_EQ(host.storedReports(), QStringList());
}

TEST_F(Journey, AnArchivedApplicationSendsNothingAndKeepsNothing)
{
    ReceiverProcess receiver(data());
    const InstalledHost host(receiver.url());
    receiver.kill();
    sendOne(host, QStringLiteral("Will retry authorization after"));
    ASSERT_EQ(host.storedReports().size(), 1);
    receiver.start();
    receiver.command(QStringLiteral("archive"), InstalledHost::bundleId);
    sendOne(host, QStringLiteral("WXLWexel: Application is archived."));
    EXPECT_TRUE(lastOutput.contains("WXLUploader: Got request")) << "not known to be archived yet";
    sendOne(host, QStringLiteral("WXLWexel: Application is archived."));
    EXPECT_FALSE(lastOutput.contains("WXLUploader: Got request")) << "dropped, as the last run was told so";
    EXPECT_EQ(host.storedReports(), QStringList());
    EXPECT_EQ(receiver.descriptions(), QStringList());
}

/// A certificate authority of its own, and a certificate for 127.0.0.1 that it signed.
struct SecureJourney : Journey {
    const QString authority = folder.filePath(QStringLiteral("ca.pem"));
    const QString certificate = folder.filePath(QStringLiteral("server.pem"));
    const QString key = folder.filePath(QStringLiteral("server.key"));

    void SetUp() override
    {
        const QString newKey = QStringLiteral("req -nodes -newkey ec -pkeyopt ec_paramgen_curve:P-256 ");
        openssl(newKey + QStringLiteral("-x509 -days 2 -subj /CN=Authority -keyout ca.key -out ca.pem"));
        openssl(newKey + QStringLiteral("-subj /CN=localhost -keyout server.key -out server.csr"));
        QFile extensions(folder.filePath(QStringLiteral("extensions")));
        ASSERT_TRUE(extensions.open(QIODevice::WriteOnly));
        extensions.write("subjectAltName=IP:127.0.0.1\n");
        extensions.close();
        openssl(QStringLiteral("x509 -req -in server.csr -CA ca.pem -CAkey ca.key -CAcreateserial -days 2 "
                               "-extfile extensions -out server.pem"));
    }
    void openssl(const QString &arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.start(QStringLiteral("openssl"), arguments.split(u' '));
        ASSERT_TRUE(process.waitForFinished() && process.exitCode() == 0)
            << process.readAllStandardError().constData();
    }
};

TEST_F(SecureJourney, ReportsGoOnlyToABackendThatTheHostTrusts)
{
    const ReceiverProcess receiver(
        data(), {QStringLiteral("--tls-cert"), certificate, QStringLiteral("--tls-key"), key});
    ASSERT_TRUE(receiver.url().startsWith(u"https://"));
    const InstalledHost host(receiver.url());
    sendOne(host, QStringLiteral("Will retry authorization after"));
    EXPECT_TRUE(lastOutput.contains("Authentication failed: Error Domain=QNetworkReply"))
        << lastOutput.constData();
    EXPECT_EQ(host.storedReports().size(), 1);
    EXPECT_EQ(receiver.descriptions(), QStringList());

    const auto trusting = host.run({QStringLiteral("core"), QStringLiteral("trust"), authority,
                                    QStringLiteral("quit-when"), sent, QStringLiteral("start")});
    EXPECT_TRUE(trusting->waitForEnd() && trusting->leftCleanly()) << trusting->output().constData();
    EXPECT_EQ(receiver.descriptions().size(), 1);
    EXPECT_EQ(host.storedReports(), QStringList());
}

} // namespace

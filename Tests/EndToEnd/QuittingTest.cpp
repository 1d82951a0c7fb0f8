#include <chrono>
#include <iostream>

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>

#include "InstalledHost.h"
#include "NumberedReport.h"
#include "Support/ReceiverProcess.h"
#include "Support/ScriptedServer.h"

using namespace wexel;

namespace {

using Answer = ScriptedServer::Answer;
using Request = ScriptedServer::Request;

constexpr int lastReports = 10; // more than can be saved before the host is gone
constexpr std::chrono::seconds atOnce(10); // on a busy machine; no request's time-out is as short

/// What the host leaves in the middle of.
struct Situation {
    const char *name;
    ScriptedServer::Script script;
    bool authorized; ///< by an earlier run, without which nothing is sent until the next
    const char *when; ///< the line after which the host leaves; "" for the first turn of its event loop
};

Answer never()
{
    return {.after = [] { return false; }};
}

Answer token()
{
    return {.body = R"({"access_token": "t", "expires_in": 1})"};
}

bool isToken(const Request &request)
{
    return request.path == "/auth/oauth2/token";
}

const Situation situations[] = {
    {"while saving", [](const Request &) { return never(); }, false, ""},
    {"with an authorisation in flight", [](const Request &) { return never(); }, false,
     "Will not start upload"},
    {"with an authorisation retry armed", [](const Request &) { return Answer{.status = 500}; }, false,
     "Will retry authorization after"},
    {"with an upload in flight",
     [](const Request &request) {
         return isToken(request) ? token() : request.path.endsWith("/files") ? never() : Answer{};
     },
     true, "starting operation"},
    {"with an upload retry armed",
     [](const Request &request) {
         if (isToken(request))
             return token();
         const bool isFile = request.path.endsWith("/files");
         return isFile ? Answer{.body = R"({"url": "http://f/1"})"}
                       : Answer{.status = request.path.endsWith("endtoend") ? 500 : 200};
     },
     true, "Will retry upload operation after"},
};

/// From the host's "leaving" to its end.
std::chrono::milliseconds timeToLeave(HostProcess &host)
{
    EXPECT_TRUE(host.waitForEnd()) << "hangs:\n" << host.output().constData();
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const auto at = host.output().lastIndexOf("\nleaving ") + 9;
    const auto left = host.output().mid(at, host.output().indexOf('\n', at) - at).toLongLong();
    EXPECT_GT(left, 0) << host.output().constData();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now) - std::chrono::milliseconds(left);
}

/// The host leaves from its event loop, which comes after all the reports were handed in.
QStringList leaveAfterReports(const QString &application, const QStringList &leave)
{
    QStringList commands = QStringList{application} + leave + QStringList{QStringLiteral("start")};
    for (int number = 1; number <= lastReports; ++number)
        commands << QStringLiteral("report") << QString::number(number);
    return commands;
}

/// Runs the host with the commands and checks that it left at once, with all of its reports on disk or sent.
/// \return its output
QByteArray expectToLeave(const InstalledHost &host, const QStringList &commands, const char *description)
{
    const auto process = host.run(commands);
    const auto time = timeToLeave(*process);
    std::cout << description << ", " << qPrintable(commands.front()) << ": " << time.count() << " ms\n";
    EXPECT_LT(time, atOnce) << description;
    EXPECT_TRUE(process->leftCleanly()) << description << '\n' << process->output().constData();
    EXPECT_EQ(host.storedReports().size(), lastReports) << description << '\n'
                                                        << process->output().constData();
    return process->output();
}

void expectDelivery(const InstalledHost &host)
{
    const QTemporaryDir folder;
    const ReceiverProcess receiver(folder.filePath(QStringLiteral("data")));
    host.pointTo(receiver.url());
    host.drain();
    QStringList expected;
    for (int number = 1; number <= lastReports; ++number)
        expected.append(NumberedReport::description(number));
    QStringList delivered = receiver.descriptions();
    std::sort(expected.begin(), expected.end());
    std::sort(delivered.begin(), delivered.end());
    EXPECT_EQ(delivered, expected);
    EXPECT_EQ(host.storedReports(), QStringList());
}

class Quitting : public testing::TestWithParam<const char *>
{
protected:
    void leaveInEverySituation(const QString &leaveWhen) const
    {
        for (const Situation &situation : situations) {
            const ScriptedServer server(situation.script);
            const InstalledHost host(server.url());
            if (situation.authorized)
                host.authorize();
            const QStringList leave = *situation.when == '\0'
                ? QStringList{leaveWhen.section(u'-', 0, 0)}
                : QStringList{leaveWhen, QString::fromUtf8(situation.when)};
            expectToLeave(host, leaveAfterReports(QString::fromUtf8(GetParam()), leave), situation.name);
            expectDelivery(host);
        }
    }
};

TEST_P(Quitting, EndsAtOnceAndLosesNothing)
{
    leaveInEverySituation(QStringLiteral("quit-when"));
}

TEST_P(Quitting, ByExitEndsAtOnceAndLosesNothing)
{
    leaveInEverySituation(QStringLiteral("exit-when"));
}

TEST_P(Quitting, BeforeAnyEventLoopEndsAtOnceAndLosesNothing)
{
    for (const QString &leave : {QStringLiteral("return"), QStringLiteral("exit-now")}) {
        const ScriptedServer server([](const Request &) { return never(); });
        const InstalledHost host(server.url());
        const QByteArray output
            = expectToLeave(host, leaveAfterReports(QString::fromUtf8(GetParam()), {}) + QStringList{leave},
                            qPrintable(leave));
        EXPECT_FALSE(output.contains("Setting client authorized")) << "abandoned, not refused";
        expectDelivery(host);
    }
}

TEST_P(Quitting, WithItsOwnRequestsInFlightEndsAtOnce)
{
    ScriptedServer server([](const Request &) { return Answer{.body = "on and ", .isEndless = true}; });
    for (const QString &leave : {QStringLiteral("return"), QStringLiteral("exit-now"), QStringLiteral("quit"),
                                 QStringLiteral("exit")}) {
        const InstalledHost host(QStringLiteral("http://[::1]:9/"));
        QStringList commands{QString::fromUtf8(GetParam()), QStringLiteral("start")};
        for (int number = 0; number < 20; ++number)
            commands << QStringLiteral("get") << server.url();
        const auto process = host.run(commands << leave);
        EXPECT_LT(timeToLeave(*process), atOnce) << qPrintable(leave);
        EXPECT_TRUE(process->leftCleanly()) << qPrintable(leave) << '\n' << process->output().constData();
    }
}

INSTANTIATE_TEST_SUITE_P(, Quitting, testing::Values("core", "gui", "widgets"));

} // namespace

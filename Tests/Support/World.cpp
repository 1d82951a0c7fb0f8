#include "Support/World.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "Business/RetryState.h"
#include "Platform/MainScheduler.h"
#include "Support/ReceiverProcess.h"
#include "Support/Wait.h"

namespace wexel {

namespace {

QString entry(const QString &key, const QString &value)
{
    return QStringLiteral("<key>%1</key><string>%2</string>").arg(key, value);
}

/// Buffers are written at the next synchronize; none of these tests needs the delay.
void never(std::chrono::milliseconds, const std::function<void()> &) { }

} // namespace

World::World(const QString &backendUrl, bool online)
    : folder(QDir::homePath() + QStringLiteral("/world-XXXXXX")) // the test program removes its home
    , host(bundle(QStringLiteral("host"),
                  entry(QStringLiteral("CFBundleIdentifier"), bundleId)
                      + QStringLiteral("<key>Wexel</key><dict>%1%2</dict>")
                            .arg(entry(QStringLiteral("APIClientID"), ReceiverProcess::clientId),
                                 entry(QStringLiteral("APIClientSecret"), ReceiverProcess::clientSecret))))
    , library(bundle(QStringLiteral("library"), entry(QStringLiteral("WEXEL_API_URL"), backendUrl)))
    , reachability(new FakeReachability(online))
    , connection(std::unique_ptr<Reachability>(reachability), notifications, scheduler)
    , session(WXLAPI::sessionConfiguration())
    , api(session, scheduler, infoPlist())
    , repository(makeUserDefaults(folder.filePath(QStringLiteral("defaults")), never))
    , fileManager(QUrl::fromLocalFile(folder.filePath(QStringLiteral("Documents"))))
{
}

World &World::make(const QString &backendUrl, bool online)
{
    (void)MainScheduler::shared(); // made on the main thread, as in a host
    delay = initialDelay;
    reauthorizationPending = false;
    delayInterval = initialDelayInterval;
    retryUploadNeeded = false;
    timerRunning = false;
    static auto &worlds = *new std::vector<std::unique_ptr<World>>;
    worlds.push_back(std::make_unique<World>(backendUrl, online));
    return *worlds.back();
}

Bundle World::bundle(const QString &name, const QString &entries) const
{
    const QString path = folder.filePath(name + QStringLiteral(".plist"));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QStringLiteral("<plist version=\"1.0\"><dict>%1</dict></plist>").arg(entries).toUtf8());
    file.close();
    return Bundle(name, {path});
}

WXLAPI::MakeInfoPlist World::infoPlist()
{
    return [this] { return WXLInfoPlist(host, library); };
}

QStringList World::storedReports() const
{
    return QDir(fileManager.documentsDirectory().toLocalFile() + u'/' + WexelSavedDirectory)
        .entryList(QDir::Files, QDir::Name);
}

void World::authorize()
{
    std::atomic<bool> done = false;
    api.authenticateWith(ReceiverProcess::clientId, ReceiverProcess::clientSecret,
                         [&](const auto &, const auto &) { done = true; });
    ASSERT_TRUE(spinUntil([&] { return done.load(); }));
    ASSERT_TRUE(api.accessToken()) << "the backend gave no token";
    repository.setClientAuthorized(true);
}

} // namespace wexel

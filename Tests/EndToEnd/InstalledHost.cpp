#include "InstalledHost.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "Support/LibraryBundle.h"
#include "Support/ReceiverProcess.h"

namespace wexel {

namespace {

const QString builtHost = QStringLiteral(END_TO_END_HOST);
const QString builtLibrary = QStringLiteral(WEXEL_LIBRARY); // under the name that hosts load it by
const QString builtBundle = QStringLiteral(WEXEL_BUNDLE);

QByteArray hostPropertyList()
{
    return QStringLiteral("<plist version=\"1.0\"><dict>"
                          "<key>CFBundleIdentifier</key><string>%1</string>"
                          "<key>CFBundleShortVersionString</key><string>2.5</string>"
                          "<key>CFBundleVersion</key><string>77</string>"
                          "<key>Wexel</key><dict><key>APIClientID</key><string>%2</string>"
                          "<key>APIClientSecret</key><string>%3</string></dict></dict></plist>")
        .arg(InstalledHost::bundleId, ReceiverProcess::clientId, ReceiverProcess::clientSecret)
        .toUtf8();
}

} // namespace

InstalledHost::InstalledHost(const QString &backendUrl) : InstalledHost(backendUrl, builtHost) { }

InstalledHost::InstalledHost(const QString &backendUrl, QString program) : m_program(std::move(program))
{
    // The host finds the library at the same place relative to itself as in the build tree.
    const QString libraryFolder = QDir(QFileInfo(m_program).path() + QStringLiteral("/.."))
                                      .relativeFilePath(QFileInfo(builtLibrary).path());
    install(m_program, QStringLiteral("bin"));
    install(builtLibrary, libraryFolder);
    install(builtBundle, QStringLiteral("share/wexel"));
    QFile list(m_folder.filePath(QStringLiteral("bin/Info.plist")));
    EXPECT_TRUE(list.open(QIODevice::WriteOnly) && list.write(hostPropertyList()) > 0);
    pointTo(backendUrl);
}

void InstalledHost::install(const QString &file, const QString &folder) const
{
    EXPECT_TRUE(QDir().mkpath(m_folder.filePath(folder)));
    // Copied, as a link would lead the library back to the bundle of the build tree.
    EXPECT_TRUE(QFile::copy(file, m_folder.filePath(folder + u'/' + QFileInfo(file).fileName())))
        << qPrintable(file);
}

void InstalledHost::pointTo(const QString &backendUrl) const
{
    pointToBackend(m_folder.path(), backendUrl);
}

std::unique_ptr<HostProcess> InstalledHost::run(const QStringList &arguments,
                                                const QProcessEnvironment &extra) const
{
    return std::make_unique<HostProcess>(
        m_folder.filePath(QStringLiteral("home")),
        m_folder.filePath(QStringLiteral("bin/") + QFileInfo(m_program).fileName()), arguments, extra);
}

void InstalledHost::authorize() const
{
    runUntil(QStringLiteral("WXLAPI - Success creating application"));
}

void InstalledHost::drain() const
{
    runUntil(QString::fromUtf8(allSent));
}

void InstalledHost::runUntil(const QString &line) const
{
    const auto host
        = run({QStringLiteral("core"), QStringLiteral("quit-when"), line, QStringLiteral("start")});
    EXPECT_TRUE(host->waitForEnd()) << host->output().constData();
    EXPECT_TRUE(host->leftCleanly()) << host->output().constData();
}

QStringList InstalledHost::storedReports() const
{
    const QDir folder(dataFolder() + QStringLiteral("/Documents/WexelSavedDataDirectory"));
    return folder.entryList({QStringLiteral("*.wexelreportfile")}, QDir::Files);
}

std::shared_ptr<UserDefaults> InstalledHost::userDefaults() const
{
    return makeUserDefaults(dataFolder() + QStringLiteral("/Preferences/wexel.defaults"), {});
}

QString InstalledHost::dataFolder() const
{
    return HostProcess::dataFolder(m_folder.filePath(QStringLiteral("home"))) + u'/'
        + QFileInfo(m_program).fileName();
}

} // namespace wexel

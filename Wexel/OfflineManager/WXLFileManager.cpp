#include "OfflineManager/WXLFileManager.h"

#include <algorithm>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include "Business/WXLBlackBoxObject.h"
#include "Platform/KeyedArchiver.h"
#include "Platform/Log.h"

namespace wexel {

namespace {

constexpr qint64 abandonedAfterSeconds = 3600;

/// What a report file may hold, and nothing else.
AllowedClasses reportClasses()
{
    return {.dictionary = true,
            .data = true,
            .string = true,
            .array = true,
            .classes = {&WXLWexelReportData::archivableClass(), &WXLWexelFile::archivableClass(),
                        &WXLBlackBoxObject::archivableClass()}};
}

/// Whether the folder that holds the entry lets it be removed.
bool isDeletable(const QString &path)
{
    const QFileInfo entry(path);
    return (entry.exists() || entry.isSymLink()) && QFileInfo(entry.absolutePath()).isWritable();
}

/// \return what went wrong, nothing on success
std::optional<QString> remove(const QString &path)
{
    if (const QFileInfo entry(path); entry.isDir() && !entry.isSymLink())
        return QDir(path).removeRecursively() ? std::nullopt
                                              : std::optional(QStringLiteral("folder not removed"));
    QFile file(path);
    return file.remove() ? std::nullopt : std::optional(file.errorString());
}

bool isReadableFolder(const QString &path)
{
    const QFileInfo folder(path);
    return folder.isDir() && folder.isReadable();
}

bool writeAtomically(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner)
        && file.write(bytes) == bytes.size() && file.commit();
}

std::optional<QByteArray> contents(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // The reader refuses what is longer. No more is asked for than there is, as all of it would be allocated.
    return file.read(std::min<qint64>(file.size(), KeyedUnarchiver::maximumBytes) + 1);
}

} // namespace

WXLFileManager::WXLFileManager(QUrl documentsDirectory) : m_documentsDirectory(std::move(documentsDirectory))
{
}

QString WXLFileManager::folderPath() const
{
    return m_documentsDirectory.toLocalFile() + u'/' + WexelSavedDirectory;
}

std::optional<QUrl> WXLFileManager::wexelSavedFolder() const
{
    if (m_documentsDirectory.isEmpty())
        return {};
    const QString path = folderPath();
    if (QFileInfo::exists(path)) {
        log(QStringLiteral("WXLFileManager: Existing target directory at %1").arg(path));
    } else {
        log(QStringLiteral("WXLFileManager: Need to create target directory at %1").arg(path));
        if (!QDir().mkpath(path))
            log(QStringLiteral("WXLFileManager: Error creating target directory: (error)"));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return QUrl::fromLocalFile(path);
}

std::optional<QUrl> WXLFileManager::generateFilenameForIdentifier(const QString &identifier) const
{
    const auto folder = wexelSavedFolder();
    if (!folder) {
        log(QStringLiteral("WXLFileManager: Error generating filename for identifier %1").arg(identifier));
        return {};
    }
    return QUrl::fromLocalFile(folder->toLocalFile() + u'/' + identifier + WexelFileExtension);
}

std::optional<QString> WXLFileManager::saveDataForReportData(const WXLWexelReportData &reportData)
{
    const std::lock_guard lock(m_mutex);
    const QString identifier = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    const auto url = generateFilenameForIdentifier(identifier);
    if (!url) {
        log(QStringLiteral("WXLFileManager: Can not generate save path for %1").arg(identifier));
        return {};
    }
    std::optional<Error> error;
    const auto bytes = KeyedArchiver::archivedDataWithRootObject(
        QVariant::fromValue<ArchivedObject>(std::make_shared<WXLWexelReportData>(reportData)), &error);
    if (error)
        log(QStringLiteral("WXLFileManager: Error serializing data: %1").arg(error->localizedDescription()));
    if (!bytes) {
        log(QStringLiteral("WXLFileManager: Error archiving data"));
        return {};
    }
    if (!writeAtomically(url->toLocalFile(), *bytes)) {
        log(QStringLiteral("WXLFileManager: Did not save encoded data to path"));
        return {};
    }
    return identifier;
}

std::shared_ptr<WXLWexelReportData>
WXLFileManager::loadReportDataForIdentifier(const QString &identifier) const
{
    const std::lock_guard lock(m_mutex);
    const auto url = generateFilenameForIdentifier(identifier);
    if (!url) {
        log(QStringLiteral("WXLFileManager: Did not generate target url"));
        return nullptr;
    }
    const auto bytes = contents(url->toLocalFile());
    if (!bytes)
        return nullptr;
    std::optional<Error> error;
    const auto root = KeyedUnarchiver::unarchivedObjectOfClasses(reportClasses(), *bytes, &error);
    if (error)
        log(QStringLiteral("WXLFileManager: Failed to deserialize because of error %1")
                .arg(error->localizedDescription()));
    auto report = std::dynamic_pointer_cast<WXLWexelReportData>(root.value<ArchivedObject>());
    if (!report)
        log(QStringLiteral("WXLFileManager: Did not load data for url"));
    return report;
}

void WXLFileManager::deleteReportDataForIdentifier(const QString &identifier)
{
    const std::lock_guard lock(m_mutex);
    const auto url = generateFilenameForIdentifier(identifier);
    if (!url)
        return log(QStringLiteral("WXLFileManager: Did not generate target url"));
    const QString path = url->toLocalFile();
    if (!isDeletable(path))
        return log(QStringLiteral("WXLFileManager: Can not delete file at %1").arg(path));
    if (const auto error = remove(path))
        log(QStringLiteral("WXLFileManager: Error deleting file %1: %2").arg(path, *error));
    else
        log(QStringLiteral("WXLFileManager: Delete file at %1").arg(path));
}

void WXLFileManager::deleteAllLocalReportData()
{
    const std::lock_guard lock(m_mutex);
    log(QStringLiteral("WXLFileManager: Deleting all locally saved report data"));
    const auto folder = wexelSavedFolder();
    if (!folder)
        return log(QStringLiteral("WXLFileManager: Error retrieving wexel local data directory url"));
    const QDir directory(folder->toLocalFile());
    if (!isReadableFolder(directory.path())) {
        log(QStringLiteral(
                "WXLFileManager: Error while reading the local report data directory at url -> %1 /n "
                "error -> %2")
                .arg(folder->toString(), QStringLiteral("not a readable folder")));
        return;
    }
    const auto names
        = directory.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const QUrl url = QUrl::fromLocalFile(directory.filePath(name));
        if (!isDeletable(url.toLocalFile()))
            log(QStringLiteral("WXLFileManager: Cant delete file at url -> %1").arg(url.toString()));
        else if (const auto error = remove(url.toLocalFile()))
            log(QStringLiteral("WXLFileManager: Error deleting file at url -> %1 /n error -> %2")
                    .arg(url.toString(), *error));
    }
}

QStringList WXLFileManager::savedReports() const
{
    const std::lock_guard lock(m_mutex);
    const QString path = folderPath();
    if (!QFileInfo::exists(path)) {
        log(QStringLiteral("WXLFileManager: Can't load stored files, directory does not exist %1").arg(path));
        return {};
    }
    const QDir directory(path);
    if (!isReadableFolder(path)) {
        log(QStringLiteral("WXLFileManager: Error getting contents of directory at %1").arg(path));
        return {};
    }
    QStringList identifiers;
    const auto names = directory.entryList(QDir::Files | QDir::Hidden, QDir::Time | QDir::Reversed);
    for (QString name : names) {
        if (name.endsWith(WexelFileExtension))
            identifiers.append(name.remove(WexelFileExtension));
    }
    return identifiers;
}

void WXLFileManager::removeAbandonedWrites()
{
    const std::lock_guard lock(m_mutex);
    // QSaveFile writes to the file's name with a suffix of its own; a recent one may be another process at work.
    const QDir directory(folderPath());
    const auto limit = QDateTime::currentDateTime().addSecs(-abandonedAfterSeconds);
    const auto entries
        = directory.entryInfoList({QStringLiteral("*%1.??????").arg(WexelFileExtension)}, QDir::Files);
    for (const QFileInfo &entry : entries) {
        if (entry.lastModified() < limit)
            QFile::remove(entry.filePath());
    }
}

bool WXLFileManager::hasReport(const QString &identifier) const
{
    const std::lock_guard lock(m_mutex);
    return QFileInfo::exists(folderPath() + u'/' + identifier + WexelFileExtension);
}

} // namespace wexel

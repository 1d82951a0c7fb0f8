#include "Platform/FileSystem.h"

#include <cerrno>

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

namespace wexel {

namespace {

QString nearestExisting(const QString &path)
{
    QString existing = QDir::cleanPath(path);
    while (!existing.isEmpty() && !QFileInfo::exists(existing)) {
        const QString parent = QFileInfo(existing).path();
        existing = parent == existing ? QString() : parent;
    }
    return existing;
}

} // namespace

std::optional<FileSystemSize> fileSystemOf(const QString &path, Error &error)
{
    const QString existing = nearestExisting(path);
    const QStorageInfo storage(existing);
    if (existing.isEmpty() || !storage.isValid() || !storage.isReady()) {
        error = {QStringLiteral("POSIXErrorDomain"), existing.isEmpty() ? ENOENT : EIO,
                 QStringLiteral("%1: cannot read the size of its file system").arg(path)};
        return std::nullopt;
    }
    return FileSystemSize{static_cast<quint64>(storage.bytesTotal()),
                          static_cast<quint64>(storage.bytesFree())};
}

} // namespace wexel

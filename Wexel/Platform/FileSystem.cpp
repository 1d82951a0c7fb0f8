#include "Platform/FileSystem.h"

#include <filesystem>
#include <system_error>

#include <QDir>
#include <QFileInfo>

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
    std::error_code failure = std::make_error_code(std::errc::no_such_file_or_directory);
    // Not QStorageInfo: it looks the path up in the table of mounts, which has none for it in a chroot.
    const auto space = existing.isEmpty() ? std::filesystem::space_info()
                                          : std::filesystem::space(existing.toStdU16String(), failure);
    if (failure) {
        error = {QStringLiteral("POSIXErrorDomain"), failure.value(),
                 QStringLiteral("%1: %2").arg(path, QString::fromStdString(failure.message()))};
        return std::nullopt;
    }
    return FileSystemSize{space.capacity, space.free};
}

} // namespace wexel

#include "Platform/Linux/KernelFile.h"

#include <cerrno>
#include <system_error>

#include <QFile>
#include <fcntl.h>
#include <unistd.h>

namespace wexel {

Error posixError(int code, const QString &message)
{
    const QString text
        = message.isEmpty() ? QString::fromStdString(std::generic_category().message(code)) : message;
    return {QStringLiteral("POSIXErrorDomain"), code, text};
}

// Read by hand: QFile does not pass the error number on.
std::optional<QByteArray> readKernelFile(const QString &path, Error &error)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        error = posixError(errno);
        return std::nullopt;
    }
    QByteArray content(64 * 1024, Qt::Uninitialized);
    qsizetype length = 0;
    ssize_t count = 1;
    while (count > 0 && length < content.size()) {
        count = read(descriptor, content.data() + length, static_cast<size_t>(content.size() - length));
        length += qMax<ssize_t>(count, 0);
    }
    const int code = errno;
    close(descriptor);
    if (count < 0) {
        error = posixError(code);
        return std::nullopt;
    }
    content.truncate(length);
    return content;
}

QByteArray readKernelValue(const QString &path)
{
    Error ignored;
    return readKernelFile(path, ignored).value_or(QByteArray()).trimmed();
}

} // namespace wexel

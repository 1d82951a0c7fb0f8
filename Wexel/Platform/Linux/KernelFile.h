#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "Platform/Error.h"

namespace wexel {

/// A failure of the system as an Error: domain "POSIXErrorDomain", the code as given.
[[nodiscard]] Error posixError(int code, const QString &message = {});

/// The whole of a small file of /proc or /sys (at most 64 KiB of it). Absent, with `error` set, when it
/// cannot be read. Thread-safe.
std::optional<QByteArray> readKernelFile(const QString &path, Error &error);

/// The same without surrounding white space; empty when it cannot be read.
QByteArray readKernelValue(const QString &path);

} // namespace wexel

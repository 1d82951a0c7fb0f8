#pragma once

#include <optional>

#include <QString>

#include "Platform/DeviceFacts.h"
#include "Platform/Error.h"

namespace wexel {

/// Processor time of every thread of this process, read from procfs. Thread-safe: no state.
class ThreadTimesSource
{
public:
    explicit ThreadTimesSource(QString procFolder = QStringLiteral("/proc"));

    /// Nothing, with `error` set, when the threads cannot be listed or one of them cannot be read. A thread that ended
    /// meanwhile is no error, it is left out.
    [[nodiscard]] std::optional<ThreadTimes> threadTimes(Error &error) const;

private:
    QString m_folder;
};

} // namespace wexel

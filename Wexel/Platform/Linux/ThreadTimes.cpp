#include "Platform/Linux/ThreadTimes.h"

#include <cerrno>
#include <filesystem>

#include <QByteArray>
#include <QList>
#include <unistd.h>

#include "Platform/Linux/KernelFile.h"

namespace wexel {

namespace {

bool hasEnded(const Error &error)
{
    return error.code == ENOENT || error.code == ESRCH;
}

// "TIME_RUN TIME_WAITED SLICES", in nanoseconds.
std::optional<std::chrono::nanoseconds> fromSchedulerStatistics(const QString &thread, Error &error)
{
    const auto schedstat = readKernelFile(thread + QStringLiteral("/schedstat"), error);
    bool isNumber = false;
    const auto run = schedstat ? schedstat->split(' ').first().toULongLong(&isNumber) : 0;
    if (schedstat && !isNumber)
        error = posixError(EINVAL, QStringLiteral("schedstat: expected nanoseconds as first number"));
    return isNumber ? std::optional(std::chrono::nanoseconds(run)) : std::nullopt;
}

// The 14th and 15th field count clock ticks; the second, a name in parentheses, may hold anything.
std::optional<std::chrono::nanoseconds> fromStatus(const QString &thread, Error &error)
{
    const auto stat = readKernelFile(thread + QStringLiteral("/stat"), error);
    if (!stat)
        return {};
    const QList<QByteArray> fields = stat->mid(stat->lastIndexOf(')') + 1).simplified().split(' ');
    bool isUser = false;
    bool isSystem = false;
    const quint64 ticks = fields.value(11).toULongLong(&isUser) + fields.value(12).toULongLong(&isSystem);
    if (!isUser || !isSystem) {
        error = posixError(EINVAL, QStringLiteral("stat: expected clock ticks as 14th and 15th field"));
        return {};
    }
    return std::chrono::nanoseconds(std::chrono::seconds(1)) * ticks / sysconf(_SC_CLK_TCK);
}

} // namespace

ThreadTimesSource::ThreadTimesSource(QString procFolder) : m_folder(std::move(procFolder)) { }

std::optional<ThreadTimes> ThreadTimesSource::threadTimes(Error &error) const
{
    const QString tasks = m_folder + QStringLiteral("/self/task");
    std::error_code failure;
    std::filesystem::directory_iterator entry(tasks.toStdString(), failure);
    ThreadTimes times;
    for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
        const QString id = QString::fromStdString(entry->path().filename().string());
        const QString thread = tasks + u'/' + id;
        Error problem;
        auto time = fromSchedulerStatistics(thread, problem);
        if (!time && hasEnded(problem)) // or the kernel keeps no such statistics
            time = fromStatus(thread, problem);
        if (time)
            times.emplace(id.toInt(), *time);
        else if (!hasEnded(problem)) {
            error = problem;
            return {};
        }
    }
    if (failure) {
        error = posixError(failure.value());
        return {};
    }
    return times;
}

} // namespace wexel

#include "Platform/Linux/ProcessMemory.h"

#include <cerrno>
#include <initializer_list>

#include <QByteArray>
#include <QList>
#include <unistd.h>

#include "Platform/Linux/KernelFile.h"

namespace wexel {

namespace {

// The sum of "Name:   123 kB" lines; absent when one of them is missing or malformed.
std::optional<quint64> sumOfFields(const QByteArray &meminfo, std::initializer_list<const char *> names,
                                   Error &error)
{
    quint64 sum = 0;
    for (const QByteArray name : names) {
        const qsizetype start = ('\n' + meminfo).indexOf('\n' + name + ':');
        const QByteArray line = start < 0 ? QByteArray() : meminfo.mid(start + name.size() + 1);
        bool isNumber = false;
        sum += line.left(line.indexOf('\n')).simplified().split(' ').first().toULongLong(&isNumber) * 1024;
        if (!isNumber) {
            error = posixError(
                EINVAL,
                QStringLiteral("meminfo: expected a line \"%1: NUMBER kB\"").arg(QString::fromLatin1(name)));
            return std::nullopt;
        }
    }
    return sum;
}

} // namespace

ProcessMemory::ProcessMemory(QString procFolder) : m_folder(std::move(procFolder)) { }

std::optional<quint64> ProcessMemory::residentBytes(Error &error) const
{
    const auto statm = readKernelFile(m_folder + QStringLiteral("/self/statm"), error);
    if (!statm)
        return std::nullopt;
    bool isNumber = false;
    const quint64 pages = statm->split(' ').value(1).toULongLong(&isNumber);
    if (!isNumber) {
        error
            = posixError(EINVAL, QStringLiteral("self/statm: expected the resident pages as second number"));
        return std::nullopt;
    }
    return pages * static_cast<quint64>(sysconf(_SC_PAGESIZE));
}

std::optional<quint64> ProcessMemory::physicalBytes() const
{
    Error ignored;
    const auto meminfo = readKernelFile(m_folder + QStringLiteral("/meminfo"), ignored);
    return meminfo ? sumOfFields(*meminfo, {"MemTotal"}, ignored) : std::nullopt;
}

std::optional<quint64> ProcessMemory::usedBytes(Error &error) const
{
    const auto meminfo = readKernelFile(m_folder + QStringLiteral("/meminfo"), error);
    if (!meminfo)
        return std::nullopt;
    return sumOfFields(
        *meminfo, {"Active", "Inactive", "Unevictable", "SUnreclaim", "KernelStack", "PageTables"}, error);
}

} // namespace wexel

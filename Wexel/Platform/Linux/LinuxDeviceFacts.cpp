#include <QLocale>
#include <QSysInfo>
#include <QTimeZone>
#include <sys/utsname.h>

#include "Platform/BackgroundThread.h"
#include "Platform/DeviceFacts.h"
#include "Platform/FileSystem.h"
#include "Platform/Linux/PowerSupplies.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/Linux/SystemServices.h"
#include "Platform/Linux/ThreadTimes.h"
#include "Platform/MainScreen.h"
#include "Platform/OrientationSensor.h"

namespace wexel {

namespace {

class LinuxDeviceFacts final : public DeviceFacts
{
public:
    explicit LinuxDeviceFacts(BackgroundThread *background) : m_orientation(background) { }

    [[nodiscard]] QString hardwareModel() const override
    {
        utsname identification{};
        uname(&identification);
        return QString::fromUtf8(static_cast<const char *>(identification.machine));
    }
    [[nodiscard]] QString systemVersion() const override
    {
        const QString version = QSysInfo::productVersion(); // "unknown" on a distribution that rolls
        return version == QStringLiteral("unknown") ? QSysInfo::kernelVersion() : version;
    }
    [[nodiscard]] QString timeZoneName() const override
    {
        return QString::fromUtf8(QTimeZone::systemTimeZoneId());
    }
    [[nodiscard]] std::optional<QString> localeIdentifier() const override
    {
        const QLocale locale = QLocale::system();
        return locale.language() == QLocale::C ? std::nullopt : std::optional(locale.name());
    }
    [[nodiscard]] BatteryFact battery() const override { return m_power.battery(); }
    [[nodiscard]] std::optional<FileSystemSize> fileSystem(const QString &path, Error &error) const override
    {
        return fileSystemOf(path, error);
    }
    [[nodiscard]] std::optional<ThreadTimes> threadTimes(Error &error) const override
    {
        return m_threads.threadTimes(error);
    }
    [[nodiscard]] std::optional<quint64> residentBytes(Error &error) const override
    {
        return m_memory.residentBytes(error);
    }
    [[nodiscard]] std::optional<quint64> physicalBytes() const override { return m_memory.physicalBytes(); }
    [[nodiscard]] std::optional<quint64> usedBytes(Error &error) const override
    {
        return m_memory.usedBytes(error);
    }
    [[nodiscard]] int deviceOrientation() const override
    {
        return m_orientation.read().value_or(m_screen.orientation());
    }
    [[nodiscard]] int screenWidth() const override { return m_screen.nativeSize().width(); }
    [[nodiscard]] int screenHeight() const override { return m_screen.nativeSize().height(); }
    [[nodiscard]] ServiceFacts services() const override { return m_services.facts(); }
    [[nodiscard]] NetworkIdentity network() const override { return m_services.network(); }

private:
    PowerSupplies m_power;
    ThreadTimesSource m_threads;
    ProcessMemory m_memory;
    MainScreen m_screen;
    mutable OrientationSensor m_orientation; // the first read starts it
    mutable SystemServices m_services; // asking renews what is known
};

} // namespace

std::unique_ptr<DeviceFacts> makeDeviceFacts(BackgroundThread *background)
{
    return std::make_unique<LinuxDeviceFacts>(background);
}

DeviceFacts &DeviceFacts::shared()
{
    static auto *instance = makeDeviceFacts(&BackgroundThread::shared()).release();
    return *instance;
}

} // namespace wexel

#include <QDBusConnection>
#include <QFileInfo>
#include <QLocale>
#include <QSysInfo>
#include <QTimeZone>
#include <sys/utsname.h>

#include "Platform/DeviceFacts.h"
#include "Platform/FileSystem.h"
#include "Platform/Linux/OwnerAuthentication.h"
#include "Platform/Linux/PermissionAuthority.h"
#include "Platform/Linux/PowerSupplies.h"
#include "Platform/Linux/ProcessMemory.h"
#include "Platform/Linux/WirelessNetwork.h"
#include "Platform/MainScreen.h"
#include "Platform/OrientationSensor.h"

namespace wexel {

namespace {

// Without an address libdbus would start a bus of its own.
QDBusConnection sessionBus()
{
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") && !QFileInfo::exists(socket))
        return QDBusConnection(QString());
    return QDBusConnection::sessionBus();
}

class LinuxDeviceFacts final : public DeviceFacts
{
public:
    explicit LinuxDeviceFacts(QObject *background) : m_orientation(background) { }

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
    [[nodiscard]] PermissionState permission(Permission permission) const override
    {
        return m_permissions.state(permission, portalApplicationId());
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
    [[nodiscard]] NetworkIdentity network() const override { return m_network.identity(); }
    [[nodiscard]] bool canAuthenticateOwner() const override { return m_authentication.isPossible(); }

private:
    PowerSupplies m_power;
    ProcessMemory m_memory;
    MainScreen m_screen;
    mutable OrientationSensor m_orientation; // the first read starts it
    WirelessNetwork m_network{&QDBusConnection::systemBus};
    PermissionAuthority m_permissions{&sessionBus, &QDBusConnection::systemBus};
    OwnerAuthentication m_authentication{&QDBusConnection::systemBus, loginName()};
};

} // namespace

std::unique_ptr<DeviceFacts> makeDeviceFacts(QObject *background)
{
    return std::make_unique<LinuxDeviceFacts>(background);
}

} // namespace wexel

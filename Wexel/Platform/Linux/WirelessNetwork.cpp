#include "Platform/Linux/WirelessNetwork.h"

#include <array>
#include <utility>

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QVariantMap>

#include "Platform/Linux/KernelFile.h"

namespace wexel {

namespace {

constexpr uint lte = 1U << 14U;
constexpr uint newRadio = 1U << 15U;
constexpr int modemIsRegistered = 8; // MM_MODEM_STATE_REGISTERED; the connected states follow

QStringList foldersIn(const QString &path)
{
    return QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

std::optional<QString> radioAccessTechnology(uint technologies)
{
    // Newest first. HSPA and HSPA+ are named after their downlink; the machine types of LTE are LTE.
    static constexpr std::array<std::pair<uint, const char *>, 11> names{{
        {newRadio, "NR"},
        {lte | 1U << 16U | 1U << 17U, "LTE"},
        {1U << 13U, "CDMAEVDORevB"},
        {1U << 12U, "CDMAEVDORevA"},
        {1U << 11U, "CDMAEVDORev0"},
        {1U << 8U | 1U << 9U | 1U << 6U, "HSDPA"},
        {1U << 7U, "HSUPA"},
        {1U << 5U, "WCDMA"},
        {1U << 10U, "CDMA1x"},
        {1U << 4U, "Edge"},
        {1U << 1U | 1U << 2U | 1U << 3U, "GPRS"},
    }};
    const QString prefix = QStringLiteral("CTRadioAccessTechnology");
    if ((technologies & newRadio) != 0 && (technologies & lte) != 0)
        return prefix + QStringLiteral("NRNSA");
    for (const auto &[bits, name] : names) {
        if ((technologies & bits) != 0)
            return prefix + QLatin1String(name);
    }
    return std::nullopt;
}

WirelessNetwork::WirelessNetwork(BusProvider systemBus, QString sysFolder)
    : m_bus(std::move(systemBus))
    , m_sysFolder(std::move(sysFolder))
{
}

NetworkIdentity WirelessNetwork::identity() const
{
    const QStringList interfaces = wifiInterfaces();
    if (const auto name = interfaces.isEmpty() ? std::nullopt : wifiName(interfaces))
        return {QStringLiteral("wifi"), name};
    return {hasRadio() ? radioTechnology() : std::nullopt, std::nullopt};
}

QStringList WirelessNetwork::wifiInterfaces() const
{
    const QString net = m_sysFolder + QStringLiteral("/class/net/");
    QStringList interfaces = foldersIn(net);
    interfaces.removeIf([&net](const QString &name) {
        return !QFileInfo::exists(net + name + QStringLiteral("/wireless"))
            && !QFileInfo::exists(net + name + QStringLiteral("/phy80211"));
    });
    return interfaces;
}

bool WirelessNetwork::hasRadio() const
{
    if (!foldersIn(m_sysFolder + QStringLiteral("/class/wwan")).isEmpty())
        return true;
    const QString net = m_sysFolder + QStringLiteral("/class/net/");
    const QStringList interfaces = foldersIn(net);
    return std::any_of(interfaces.begin(), interfaces.end(), [&net](const QString &name) {
        return readKernelValue(net + name + QStringLiteral("/uevent")).split('\n').contains("DEVTYPE=wwan");
    });
}

std::optional<QString> WirelessNetwork::wifiName(const QStringList &interfaces) const
{
    const QString prefix = QStringLiteral("org.freedesktop.NetworkManager");
    BusService manager(m_bus, prefix);
    if (!manager.isAvailable())
        return std::nullopt;
    for (const QString &interface : interfaces) {
        const auto device = manager.call(QStringLiteral("/org/freedesktop/NetworkManager"), prefix,
                                         QStringLiteral("GetDeviceByIpIface"), {interface});
        if (!device)
            continue;
        const QString accessPoint
            = manager
                  .property(device->value(0).value<QDBusObjectPath>().path(),
                            prefix + QStringLiteral(".Device.Wireless"), QStringLiteral("ActiveAccessPoint"))
                  .value<QDBusObjectPath>()
                  .path();
        if (accessPoint.size() < 2) // "/" stands for none
            continue;
        const QByteArray ssid
            = manager.property(accessPoint, prefix + QStringLiteral(".AccessPoint"), QStringLiteral("Ssid"))
                  .toByteArray();
        if (!ssid.isEmpty())
            return QString::fromUtf8(ssid);
    }
    return std::nullopt;
}

std::optional<QString> WirelessNetwork::radioTechnology() const
{
    const QString prefix = QStringLiteral("org.freedesktop.ModemManager1");
    BusService manager(m_bus, prefix);
    const auto answer = !manager.isAvailable()
        ? std::nullopt
        : manager.call(QStringLiteral("/org/freedesktop/ModemManager1"),
                       QStringLiteral("org.freedesktop.DBus.ObjectManager"),
                       QStringLiteral("GetManagedObjects"));
    const QVariant objects = answer ? answer->value(0) : QVariant();
    if (!objects.canConvert<QDBusArgument>())
        return std::nullopt;
    const auto modems = qdbus_cast<QMap<QDBusObjectPath, QMap<QString, QVariantMap>>>(objects);
    for (const auto &interfaces : modems) {
        const QVariantMap modem = interfaces.value(prefix + QStringLiteral(".Modem"));
        if (modem.value(QStringLiteral("State")).toInt() < modemIsRegistered)
            continue;
        if (auto name = radioAccessTechnology(modem.value(QStringLiteral("AccessTechnologies")).toUInt()))
            return name;
    }
    return std::nullopt;
}

} // namespace wexel

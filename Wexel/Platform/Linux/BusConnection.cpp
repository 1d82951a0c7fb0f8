#include "Platform/Linux/BusConnection.h"

#include <atomic>
#include <utility>

#include <QDBusMessage>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

#include "Platform/ApplicationEnd.h"
#include "Platform/Linux/BusService.h"

namespace wexel {

namespace {

QString unixAddressIn(const QString &addresses)
{
    for (const QString &address : addresses.split(u';')) {
        if (address.startsWith(QStringLiteral("unix:")))
            return address;
    }
    return {};
}

QString addressOfSocket(const QString &path)
{
    return QStringLiteral("unix:path=") + QString::fromLatin1(QUrl::toPercentEncoding(path, "/", "~"));
}

QString nextName()
{
    static std::atomic<int> number = 0;
    return QStringLiteral("wexel-bus-%1").arg(++number);
}

} // namespace

QString sessionBusAddress()
{
    if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"))
        return unixAddressIn(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    return QFileInfo::exists(socket) ? addressOfSocket(socket) : QString();
}

QString systemBusAddress()
{
    if (qEnvironmentVariableIsSet("DBUS_SYSTEM_BUS_ADDRESS"))
        return unixAddressIn(qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS"));
    return addressOfSocket(QStringLiteral("/run/dbus/system_bus_socket"));
}

BusConnection::BusConnection(QString address) : m_address(std::move(address)), m_name(nextName()) { }

BusConnection::~BusConnection()
{
    QDBusConnection::disconnectFromPeer(m_name);
}

QDBusConnection BusConnection::get()
{
    const std::lock_guard lock(m_mutex);
    QDBusConnection existing(m_name);
    const auto now = std::chrono::steady_clock::now();
    if (existing.isConnected() || m_address.isEmpty() || now < m_notBefore || ApplicationEnd::hasBegun())
        return existing;
    if (!connect()) {
        QDBusConnection::disconnectFromPeer(m_name);
        m_notBefore = std::chrono::steady_clock::now() + pauseAfterFailure;
    }
    return QDBusConnection(m_name);
}

// QDBusConnection::systemBus() and its like wait for the bus without a limit, and with QtDBus's own thread, which the
// end of the process waits for. As to a peer the connection is made at once; the bus is greeted with a call then, which
// has a time-out as every other.
bool BusConnection::connect() const
{
    QDBusConnection::disconnectFromPeer(m_name);
    const QDBusConnection connection = QDBusConnection::connectToPeer(m_address, m_name);
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    const QDBusMessage hello = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"),
                                                              bus, QStringLiteral("Hello"));
    const int timeout = static_cast<int>(BusService::timeout.count());
    return connection.call(hello, QDBus::Block, timeout).type() == QDBusMessage::ReplyMessage;
}

} // namespace wexel

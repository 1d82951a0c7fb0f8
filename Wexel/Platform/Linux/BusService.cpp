#include "Platform/Linux/BusService.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QStringList>

#include "Platform/ApplicationEnd.h"

namespace wexel {

BusService::BusService(const BusProvider &bus, QString name, std::chrono::milliseconds patience)
    : m_connection(bus())
    , m_name(std::move(name))
    , m_patience(patience)
{
}

bool BusService::isAvailable()
{
    return askBus(QStringLiteral("NameHasOwner"), {m_name}).toBool()
        || askBus(QStringLiteral("ListActivatableNames")).toStringList().contains(m_name);
}

std::optional<QVariantList> BusService::call(const QString &path, const QString &interface,
                                             const QString &method, const QVariantList &arguments)
{
    return send(m_name, path, interface, method, arguments);
}

QVariant BusService::property(const QString &path, const QString &interface, const QString &name)
{
    const auto answer = call(path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                             {interface, name});
    return answer ? answer->value(0).value<QDBusVariant>().variant() : QVariant();
}

std::optional<QVariantList> BusService::send(const QString &service, const QString &path,
                                             const QString &interface, const QString &method,
                                             const QVariantList &arguments)
{
    const bool isPath = path.startsWith(u'/'); // it may come from an answer of the wrong type
    if (m_isSilent || ApplicationEnd::hasBegun() || !isPath || !m_connection.isConnected())
        return std::nullopt;
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = m_connection.call(message, QDBus::Block, static_cast<int>(m_patience.count()));
    if (reply.type() == QDBusMessage::ReplyMessage)
        return reply.arguments();
    const auto error = QDBusError(reply).type();
    m_isSilent
        = error == QDBusError::NoReply || error == QDBusError::Timeout || error == QDBusError::TimedOut;
    return std::nullopt;
}

QVariant BusService::askBus(const QString &method, const QVariantList &arguments)
{
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    return send(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method, arguments)
        .value_or(QVariantList())
        .value(0);
}

} // namespace wexel

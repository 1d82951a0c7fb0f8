#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include <QDBusConnection>
#include <QString>
#include <QVariant>
#include <QVariantList>

namespace wexel {

/// Where a bus connection comes from. Asked only when there is something to call, since connecting takes
/// time.
using BusProvider = std::function<QDBusConnection()>;

/// One service on D-Bus, for a few short questions on end: made, asked, dropped.
///
/// Every answer is awaited in place, for at most the time-out; after one that did not come the service is not
/// asked again by this object, so a hung service costs one time-out. When the application has ended, all
/// answers are absent. Absent answers are not logged: a machine without the service is as good as any. May be
/// used on any thread but the main one (the bus has time to start a service), by one at a time.
class BusService
{
public:
    static constexpr std::chrono::milliseconds timeout{5000};

    BusService(const BusProvider &bus, QString name, std::chrono::milliseconds patience = timeout);

    /// True when the service runs or can be started by the bus. Without a bus: false, at once.
    [[nodiscard]] bool isAvailable();
    /// The values that the method returns; absent when it fails.
    std::optional<QVariantList> call(const QString &path, const QString &interface, const QString &method,
                                     const QVariantList &arguments = {});
    /// The value of a property; invalid when there is none.
    [[nodiscard]] QVariant property(const QString &path, const QString &interface, const QString &name);

private:
    std::optional<QVariantList> send(const QString &service, const QString &path, const QString &interface,
                                     const QString &method, const QVariantList &arguments);
    QVariant askBus(const QString &method, const QVariantList &arguments = {});

    QDBusConnection m_connection;
    QString m_name;
    std::chrono::milliseconds m_patience;
    bool m_isSilent = false;
};

} // namespace wexel

#include "Platform/Linux/PermissionAuthority.h"

#include <algorithm>
#include <utility>

#include <QDBusArgument>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMap>
#include <QSettings>

namespace wexel {

namespace {

// "video0" and "snd/pcmC0D0c" may be opened by this process. Access is asked for, not tried: opening lights a
// lamp.
bool mayOpenOneOf(const QString &folder, const QString &files)
{
    const QFileInfoList devices = QDir(folder).entryInfoList({files}, QDir::System | QDir::Files);
    return std::any_of(devices.begin(), devices.end(),
                       [](const QFileInfo &device) { return device.isReadable() && device.isWritable(); });
}

QString storeName()
{
    return QStringLiteral("org.freedesktop.impl.portal.PermissionStore");
}

} // namespace

QString portalApplicationId(const QString &flatpakInfo)
{
    if (QFile::exists(flatpakInfo))
        return QSettings(flatpakInfo, QSettings::IniFormat)
            .value(QStringLiteral("Application/name"))
            .toString();
    return QGuiApplication::desktopFileName();
}

/// The permission store, asked about one application.
class PermissionAuthority::Store
{
public:
    Store(const BusProvider &sessionBus, QString applicationId)
        : m_service(sessionBus, storeName())
        , m_isAvailable(m_service.isAvailable())
        , m_applicationId(std::move(applicationId))
    {
    }

    // The store answers with a map from application to its permissions: "yes", "no" or "ask" for a device, the
    // accuracy (first of two) for the location.
    Decision decision(const QString &table, const QString &id)
    {
        const auto answer = !m_isAvailable
            ? std::nullopt
            : m_service.call(QStringLiteral("/org/freedesktop/impl/portal/PermissionStore"), storeName(),
                             QStringLiteral("Lookup"), {table, id});
        const QVariant entries = answer ? answer->value(0) : QVariant();
        if (!entries.canConvert<QDBusArgument>())
            return Decision::None;
        const QString word
            = qdbus_cast<QMap<QString, QStringList>>(entries).value(m_applicationId).value(0).toUpper();
        if (word.isEmpty() || word == QStringLiteral("ASK"))
            return Decision::None;
        return word == QStringLiteral("NO") || word == QStringLiteral("NONE") ? Decision::No : Decision::Yes;
    }

private:
    BusService m_service;
    bool m_isAvailable;
    QString m_applicationId;
};

PermissionAuthority::PermissionAuthority(BusProvider sessionBus, BusProvider systemBus, QString deviceFolder)
    : m_sessionBus(std::move(sessionBus))
    , m_systemBus(std::move(systemBus))
    , m_deviceFolder(std::move(deviceFolder))
{
}

Permissions PermissionAuthority::states(const QString &applicationId) const
{
    Store store(m_sessionBus, applicationId);
    const QString devices = QStringLiteral("devices");
    const QString location = QStringLiteral("location");
    return {{Permission::Camera,
             deviceState(store.decision(devices, QStringLiteral("camera")), QStringLiteral("video*"))},
            {Permission::Microphone,
             deviceState(store.decision(devices, QStringLiteral("microphone")), QStringLiteral("snd/pcm*c"))},
            {Permission::Location, locationState(store.decision(location, location))}};
}

PermissionState PermissionAuthority::deviceState(Decision decided, const QString &files) const
{
    if (decided != Decision::None)
        return decided == Decision::Yes ? PermissionState::Granted : PermissionState::NotGranted;
    const QFileInfo pattern(QDir(m_deviceFolder), files);
    return mayOpenOneOf(pattern.path(), pattern.fileName()) ? PermissionState::Granted
                                                            : PermissionState::NotGranted;
}

PermissionState PermissionAuthority::locationState(Decision decided) const
{
    return decided == Decision::Yes
            && BusService(m_systemBus, QStringLiteral("org.freedesktop.GeoClue2")).isAvailable()
        ? PermissionState::GrantedWhileUsing
        : PermissionState::NotGranted;
}

} // namespace wexel

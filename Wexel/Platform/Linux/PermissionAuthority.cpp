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

} // namespace

QString portalApplicationId(const QString &flatpakInfo)
{
    if (QFile::exists(flatpakInfo))
        return QSettings(flatpakInfo, QSettings::IniFormat)
            .value(QStringLiteral("Application/name"))
            .toString();
    return QGuiApplication::desktopFileName();
}

PermissionAuthority::PermissionAuthority(BusProvider sessionBus, BusProvider systemBus, QString deviceFolder)
    : m_sessionBus(std::move(sessionBus))
    , m_systemBus(std::move(systemBus))
    , m_deviceFolder(std::move(deviceFolder))
{
}

PermissionState PermissionAuthority::state(Permission permission, const QString &applicationId) const
{
    switch (permission) {
    case Permission::Camera:
        return deviceState(QStringLiteral("camera"), applicationId, QStringLiteral("video*"));
    case Permission::Microphone:
        return deviceState(QStringLiteral("microphone"), applicationId, QStringLiteral("snd/pcm*c"));
    case Permission::Location:
        return locationState(applicationId);
    case Permission::Contacts:
    case Permission::PhotoLibrary:
    case Permission::Calendar:
    case Permission::MediaLibrary:
        break;
    }
    return PermissionState::NotGranted;
}

PermissionState PermissionAuthority::deviceState(const QString &device, const QString &applicationId,
                                                 const QString &files) const
{
    const Decision decided = decision(QStringLiteral("devices"), device, applicationId);
    if (decided != Decision::None)
        return decided == Decision::Yes ? PermissionState::Granted : PermissionState::NotGranted;
    const QFileInfo pattern(QDir(m_deviceFolder), files);
    return mayOpenOneOf(pattern.path(), pattern.fileName()) ? PermissionState::Granted
                                                            : PermissionState::NotGranted;
}

PermissionState PermissionAuthority::locationState(const QString &applicationId) const
{
    const QString location = QStringLiteral("location");
    if (decision(location, location, applicationId) != Decision::Yes)
        return PermissionState::NotGranted;
    return BusService(m_systemBus, QStringLiteral("org.freedesktop.GeoClue2")).isAvailable()
        ? PermissionState::GrantedWhileUsing
        : PermissionState::NotGranted;
}

// The store answers with a map from application to its permissions: "yes", "no" or "ask" for a device, the
// accuracy (first of two) for the location.
PermissionAuthority::Decision PermissionAuthority::decision(const QString &table, const QString &id,
                                                            const QString &applicationId) const
{
    const QString name = QStringLiteral("org.freedesktop.impl.portal.PermissionStore");
    BusService store(m_sessionBus, name);
    const auto answer = !store.isAvailable()
        ? std::nullopt
        : store.call(QStringLiteral("/org/freedesktop/impl/portal/PermissionStore"), name,
                     QStringLiteral("Lookup"), {table, id});
    const QVariant entries = answer ? answer->value(0) : QVariant();
    if (!entries.canConvert<QDBusArgument>())
        return Decision::None;
    const QString word
        = qdbus_cast<QMap<QString, QStringList>>(entries).value(applicationId).value(0).toUpper();
    if (word.isEmpty() || word == QStringLiteral("ASK"))
        return Decision::None;
    return word == QStringLiteral("NO") || word == QStringLiteral("NONE") ? Decision::No : Decision::Yes;
}

} // namespace wexel

#pragma once

#include <QString>

#include "Platform/DeviceFacts.h"
#include "Platform/Linux/BusService.h"

namespace wexel {

/// The name that the desktop's portals know this application by: that of its Flatpak, else its desktop
/// file's.
[[nodiscard]] QString portalApplicationId(const QString &flatpakInfo = QStringLiteral("/.flatpak-info"));

/// What this process may use, told by the desktop portal's permission store and by the device files it may
/// open. Nothing is guessed: what neither knows is not granted. Thread-safe: no state.
///
/// - Camera, microphone: the store's word on the application, else whether a capture device may be opened.
/// - Location: GeoClue is there and the store holds an accuracy for the application. Such a grant lasts while
/// the
///   application runs.
/// - Contacts, photo library, calendar, media library: no portal keeps permissions for them; never granted.
class PermissionAuthority
{
public:
    PermissionAuthority(BusProvider sessionBus, BusProvider systemBus,
                        QString deviceFolder = QStringLiteral("/dev"));

    [[nodiscard]] Permissions states(const QString &applicationId) const;

private:
    enum class Decision { None, Yes, No };

    class Store;

    [[nodiscard]] PermissionState deviceState(Decision decided, const QString &files) const;
    [[nodiscard]] PermissionState locationState(Decision decided) const;

    BusProvider m_sessionBus;
    BusProvider m_systemBus;
    QString m_deviceFolder;
};

} // namespace wexel

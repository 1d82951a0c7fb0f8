#pragma once

#include <memory>

#include <QTemporaryDir>

#include "API/WXLAPI.h"
#include "Business/WXLAppRepository.h"
#include "Helpers/WXLConnection.h"
#include "OfflineManager/WXLFileManager.h"
#include "Platform/Bundle.h"
#include "Platform/NotificationCenter.h"
#include "Support/FakeReachability.h"
#include "Support/FakeScheduler.h"

namespace wexel {

/// The library's real classes around a backend, in a folder of their own, on a time and a network state that the
/// test sets. Never destroyed before the process ends, as in a host: blocks in flight refer to it.
struct World {
    QTemporaryDir folder;
    Bundle host;
    Bundle library;
    NotificationCenter notifications;
    FakeScheduler scheduler;
    FakeReachability *reachability; // owned by `connection`
    WXLConnection connection;
    UrlSession session;
    WXLAPI api;
    WXLAppRepository repository;
    WXLFileManager fileManager;

    /// Resets the process-wide retry state, too.
    [[nodiscard]] static World &make(const QString &backendUrl, bool online = true);

    static inline const QString bundleId = QStringLiteral("org.wexel.tests");
    [[nodiscard]] WXLAPI::MakeInfoPlist infoPlist();
    [[nodiscard]] QStringList storedReports() const;
    /// Gets a token from the backend, as the authorisation would.
    void authorize();

    explicit World(const QString &backendUrl, bool online);

private:
    [[nodiscard]] Bundle bundle(const QString &name, const QString &entries) const;
};

} // namespace wexel

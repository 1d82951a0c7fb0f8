#pragma once

#include <memory>

#include <QTemporaryDir>

#include "Platform/UserDefaults.h"
#include "Support/HostProcess.h"

namespace wexel {

/// An install prefix with the built library, its bundle and a host, and a home folder for the host. The home, and so what
/// the host keeps, stays when the host runs again.
class InstalledHost
{
public:
    static inline const QString bundleId = QStringLiteral("org.wexel.endtoend");

    explicit InstalledHost(const QString &backendUrl);
    /// \param program another host than that of the tests
    InstalledHost(const QString &backendUrl, QString program);

    void pointTo(const QString &backendUrl) const;
    /// Runs the host with those arguments, see Host.cpp.
    /// \param extra added to its environment
    [[nodiscard]] std::unique_ptr<HostProcess> run(const QStringList &arguments,
                                                   const QProcessEnvironment &extra = {}) const;
    /// Runs the host until it is authorised. Before that is known, reports are kept for a later run.
    void authorize() const;
    /// Runs the host until everything it had kept has been sent.
    void drain() const;
    /// Names of the report files in the host's documents folder.
    [[nodiscard]] QStringList storedReports() const;
    /// The host's store, which a running host may have open, too.
    [[nodiscard]] std::shared_ptr<UserDefaults> userDefaults() const;

private:
    [[nodiscard]] QString dataFolder() const;
    void runUntil(const QString &line) const;
    void install(const QString &file, const QString &folder) const;

    QString m_program;
    QTemporaryDir m_folder;
};

inline const QByteArray allSent
    = QByteArrayLiteral("WXLUploader: All upload operations completed succesfully");

} // namespace wexel

#pragma once

#include <chrono>
#include <mutex>

#include <QDBusConnection>
#include <QString>

namespace wexel {

/// The addresses of the session's and of the system's bus; empty when there is none behind a Unix socket, the only kind
/// whose connecting neither starts a process nor waits for a network.
[[nodiscard]] QString sessionBusAddress();
[[nodiscard]] QString systemBusAddress();

/// A connection of the library's own to a bus, made when it is first asked for and anew when it broke. A bus that
/// does not answer costs one time-out, then nothing for `pauseAfterFailure`. Thread-safe.
class BusConnection
{
public:
    static constexpr std::chrono::seconds pauseAfterFailure{10};

    explicit BusConnection(QString address);
    ~BusConnection();
    BusConnection(const BusConnection &) = delete;
    BusConnection &operator=(const BusConnection &) = delete;

    /// Blocks for as long as a call on the bus may take. Not connected when the bus cannot be reached.
    [[nodiscard]] QDBusConnection get();

private:
    [[nodiscard]] bool connect() const;

    const QString m_address;
    const QString m_name; // that QtDBus keeps the connection under
    std::mutex m_mutex; // held while connecting, so that it is done once; guards `m_notBefore`
    std::chrono::steady_clock::time_point m_notBefore;
};

} // namespace wexel

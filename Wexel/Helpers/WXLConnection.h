#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>

#include <QString>

#include "Platform/NotificationCenter.h"
#include "Platform/Reachability.h"
#include "Platform/Scheduler.h"

namespace wexel {

/// Posted on the main thread at every change of reachability, while monitoring.
inline const QString WXLReachabilityChanged = QStringLiteral("WXLReachabilityChanged");

/// Who hands in deferred work: its class and method, the latter with the colons of its arguments.
struct Caller {
    QString className;
    QString method;
};

/// True when the flags say that the network is usable now.
[[nodiscard]] bool isConnected(ReachabilityFlags flags);

/// Tells whether the network is usable and keeps work until it is.
///
/// Idle (nothing parked, not monitoring) -> waiting (blocks parked, monitoring) -> the network returns: the blocks
/// run once and are gone, monitoring goes on until `cancelGlobalPendingBlocks`.
/// Thread-safe; parked blocks run on the main thread, others at once on the caller's.
class WXLConnection
{
public:
    WXLConnection(std::unique_ptr<Reachability> networkReachability, NotificationCenter &center,
                  Scheduler &scheduler);
    /// First called on the main thread.
    static WXLConnection &sharedInstance();

    [[nodiscard]] bool hasConnectivity() const;
    /// Runs the block now when connected, else parks it. A later block of the same caller replaces it.
    void performWhenConnected(const Caller &caller, std::function<void()> block);
    /// Drops every parked block whose key contains the class name, so "WXLWexel" also drops those of the class
    /// "WXLWexelUploadOperation".
    void cancelPendingBlocksForInstance(const QString &className);
    void cancelGlobalPendingBlocks();

    void startMonitoring();
    void stopMonitoring();
    /// Runs and removes what is parked, when connected. Main thread.
    void reachabilityChanged();

private:
    NotificationCenter &m_center;
    Scheduler &m_scheduler;
    std::unique_ptr<Reachability> m_networkReachability;
    std::mutex m_arrayLock; // guards `m_blocks`; not held while a block runs
    std::map<QString, std::function<void()>> m_blocks; // by class name followed by method name
    std::atomic<bool> m_monitoring = false;
};

} // namespace wexel

#include "Helpers/WXLConnection.h"

#include <utility>

#include <QStringList>

#include "Platform/Log.h"
#include "Platform/MainScheduler.h"

namespace wexel {

bool isConnected(ReachabilityFlags flags)
{
    using Flag = ReachabilityFlag;
    if (!flags.testFlag(Flag::Reachable))
        return false;
    const bool connectsByItself
        = flags.testFlag(Flag::ConnectionOnTraffic) || flags.testFlag(Flag::ConnectionOnDemand);
    return !flags.testFlag(Flag::ConnectionRequired) || flags.testFlag(Flag::IsWWAN)
        || (!flags.testFlag(Flag::InterventionRequired) && connectsByItself);
}

WXLConnection::WXLConnection(std::unique_ptr<Reachability> networkReachability, NotificationCenter &center,
                             Scheduler &scheduler)
    : m_center(center)
    , m_scheduler(scheduler)
    , m_networkReachability(std::move(networkReachability))
{
    m_center.addObserver(WXLReachabilityChanged, [this] { reachabilityChanged(); });
}

WXLConnection &WXLConnection::sharedInstance()
{
    static auto *instance
        = new WXLConnection(makeReachability(), NotificationCenter::defaultCenter(), MainScheduler::shared());
    return *instance;
}

bool WXLConnection::hasConnectivity() const
{
    const auto flags = m_networkReachability ? m_networkReachability->flags() : std::nullopt;
    return flags && isConnected(*flags);
}

void WXLConnection::performWhenConnected(const Caller &caller, std::function<void()> block)
{
    if (caller.className.isEmpty() && caller.method.isEmpty())
        return log(QStringLiteral(
            "WXLConnection - Could not determine the caller of the performWhenConnected method, "
            "returning"));
    if (caller.className.isEmpty() || caller.method.isEmpty())
        return log(QStringLiteral(
            "WXLConnection - Incomplete caller information for the performWhenConnected method, "
            "returning"));
    if (hasConnectivity()) {
        log(QStringLiteral("WXLConnection - Performing block immediately as we are connected"));
        return block();
    }
    {
        const std::lock_guard lock(m_arrayLock);
        m_blocks.insert_or_assign(caller.className + caller.method, std::move(block));
    }
    startMonitoring();
    if (hasConnectivity()) // it returned between the question and the parking
        m_scheduler.perform([this] { m_center.post(WXLReachabilityChanged); });
}

void WXLConnection::cancelPendingBlocksForInstance(const QString &className)
{
    if (className.isEmpty())
        return;
    log(QStringLiteral("WXLConnection - Canceling pending blocks scheduled from %1 class").arg(className));
    const std::lock_guard lock(m_arrayLock);
    std::erase_if(m_blocks, [&](const auto &entry) { return entry.first.contains(className); });
}

void WXLConnection::cancelGlobalPendingBlocks()
{
    log(QStringLiteral("WXLConnection - Canceling all global pending blocks"));
    stopMonitoring();
    const std::lock_guard lock(m_arrayLock);
    m_blocks.clear();
}

void WXLConnection::startMonitoring()
{
    if (!m_networkReachability || m_monitoring.exchange(true))
        return;
    m_networkReachability->schedule([this] { m_center.post(WXLReachabilityChanged); });
}

void WXLConnection::stopMonitoring()
{
    if (m_networkReachability)
        m_networkReachability->unschedule();
    m_monitoring = false;
}

void WXLConnection::reachabilityChanged()
{
    if (!hasConnectivity())
        return;
    QStringList keys;
    {
        const std::lock_guard lock(m_arrayLock);
        for (const auto &[key, block] : m_blocks)
            keys.append(key);
    }
    // A block may park itself again or cancel others, so each is taken out right before it runs, without the lock.
    for (const auto &key : std::as_const(keys)) {
        decltype(m_blocks)::node_type parked;
        {
            const std::lock_guard lock(m_arrayLock);
            parked = m_blocks.extract(key);
        }
        if (!parked.empty())
            parked.mapped()();
    }
}

} // namespace wexel

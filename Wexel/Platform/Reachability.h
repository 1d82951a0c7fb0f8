#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QFlags>

namespace wexel {

/// What is known about the way to the network at large. The values are those of the connectivity rules.
enum class ReachabilityFlag : unsigned {
    Reachable = 0x2,
    ConnectionRequired = 0x4,
    ConnectionOnTraffic = 0x8,
    InterventionRequired = 0x10,
    ConnectionOnDemand = 0x20,
    IsWWAN = 0x40000,
};
Q_DECLARE_FLAGS(ReachabilityFlags, ReachabilityFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(ReachabilityFlags)

/// A source of reachability flags and of changes of them.
class Reachability
{
public:
    virtual ~Reachability() = default;
    /// Thread-safe. Nothing when the flags cannot be read.
    [[nodiscard]] virtual std::optional<ReachabilityFlags> flags() const = 0;
    /// Calls the block on the main thread at every change, until `unschedule`. Thread-safe.
    virtual void schedule(std::function<void()> callback) = 0;
    virtual void unschedule() = 0;
};

/// The machine's: QNetworkInformation, or, where it has no back end or until it is loaded, the state of the network
/// interfaces. Never destroyed.
std::unique_ptr<Reachability> makeReachability();

} // namespace wexel

#include "Platform/Reachability.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <mutex>

#include <QNetworkInformation>
#include <QNetworkInterface>
#include <QObject>
#include <QThread>

#include "Platform/MainScheduler.h"

namespace wexel {

namespace {

/// Any network interface but the loopback that is up and has an address.
bool anyInterfaceIsUp()
{
    const auto interfaces = QNetworkInterface::allInterfaces();
    return std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface &interface) {
        const auto flags = interface.flags();
        return flags.testFlag(QNetworkInterface::IsRunning) && !flags.testFlag(QNetworkInterface::IsLoopBack)
            && !interface.addressEntries().isEmpty();
    });
}

ReachabilityFlags flagsOf(const QNetworkInformation &information)
{
    switch (information.reachability()) {
    case QNetworkInformation::Reachability::Disconnected:
        return {};
    case QNetworkInformation::Reachability::Unknown:
        return anyInterfaceIsUp() ? ReachabilityFlag::Reachable : ReachabilityFlags();
    case QNetworkInformation::Reachability::Local:
    case QNetworkInformation::Reachability::
        Site: // a self-hosted backend may well be on the site's own network
    case QNetworkInformation::Reachability::Online:
        break;
    }
    ReachabilityFlags flags = ReachabilityFlag::Reachable;
    if (information.transportMedium() == QNetworkInformation::TransportMedium::Cellular)
        flags |= ReachabilityFlag::IsWWAN;
    return flags;
}

class NetworkInformationReachability final : public QObject, public Reachability
{
public:
    std::optional<ReachabilityFlags> flags() const override
    {
        loadOnce();
        const int known = m_flags;
        if (known >= 0)
            return ReachabilityFlags::fromInt(known);
        return anyInterfaceIsUp() ? ReachabilityFlag::Reachable : ReachabilityFlags();
    }

    void schedule(std::function<void()> callback) override
    {
        loadOnce();
        const std::lock_guard lock(m_mutex);
        m_callback = std::move(callback);
    }

    void unschedule() override
    {
        const std::lock_guard lock(m_mutex);
        m_callback = {};
    }

private:
    // A back end belongs to the main thread and may talk to the system bus: nobody pays for it before the first
    // question, which the network interfaces answer.
    void loadOnce() const
    {
        std::call_once(m_loading, [this] {
            auto *self = const_cast<NetworkInformationReachability *>(this);
            MainScheduler::shared().perform([self] { self->load(); });
        });
    }

    void load()
    {
        if (!QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability))
            return;
        moveToThread(QThread::currentThread());
        auto *information = QNetworkInformation::instance();
        connect(information, &QNetworkInformation::reachabilityChanged, this, [this] { changed(); });
        connect(information, &QNetworkInformation::transportMediumChanged, this, [this] { changed(); });
        changed();
    }

    void changed()
    {
        const auto flags = flagsOf(*QNetworkInformation::instance());
        m_flags = static_cast<int>(flags.toInt());
        std::function<void()> callback;
        {
            const std::lock_guard lock(m_mutex);
            callback = m_callback;
        }
        if (callback)
            callback();
    }

    mutable std::once_flag m_loading;
    std::atomic<int> m_flags
        = -1; // of the back end, -1 until it is there; other threads must not ask it themselves
    std::mutex m_mutex; // guards `m_callback`; not held while it runs
    std::function<void()> m_callback;
};

} // namespace

std::unique_ptr<Reachability> makeReachability()
{
    return std::make_unique<NetworkInformationReachability>();
}

} // namespace wexel

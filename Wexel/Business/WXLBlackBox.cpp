#include "Business/WXLBlackBox.h"

#include "Business/HistoryKeys.h"
#include "Business/HistorySnapshot.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLQueue.h"
#include "Helpers/WXLConnection.h"
#include "Platform/HostFolders.h"
#include "Platform/ThreadPool.h"

namespace wexel {

using namespace std::chrono_literals;

/// Storage and battery have a history that nothing fills: it only carries what an earlier version recorded.
struct WXLBlackBox::Queues {
    explicit Queues(WXLAppRepository &repository)
        : cpuQueue(repository, NUMBER_OF_ELEMENTS_IN_HALF_SEC_REPORT, kWXLCpuHistoryKey)
        , memoryUsedByAppQueue(repository, NUMBER_OF_ELEMENTS_IN_HALF_SEC_REPORT,
                               kWXLMemoryUsedByAppHistoryKey)
        , memoryUsedByDeviceQueue(repository, NUMBER_OF_ELEMENTS_IN_HALF_SEC_REPORT,
                                  kWXLMemoryUsedByDeviceHistoryKey)
        , storageQueue(repository, NUMBER_OF_ELEMENTS_IN_HALF_SEC_REPORT, kWXLStorageHistoryKey)
        , batteryQueue(repository, NUMBER_OF_ELEMENTS_IN_TWO_SEC_REPORT, kWXLBatteryHistoryKey)
        , networkQueue(repository, NUMBER_OF_ELEMENTS_IN_TWO_SEC_REPORT, kWXLNetworkHistoryKey)
        , orientationQueue(repository, NUMBER_OF_ELEMENTS_IN_TWO_SEC_REPORT, kWXLOrientationHistoryKey)
    {
    }
    WXLQueue cpuQueue, memoryUsedByAppQueue, memoryUsedByDeviceQueue, storageQueue, batteryQueue,
        networkQueue, orientationQueue;

    void close()
    {
        for (WXLQueue *queue : {&cpuQueue, &memoryUsedByAppQueue, &memoryUsedByDeviceQueue, &storageQueue,
                                &batteryQueue, &networkQueue, &orientationQueue})
            queue->close();
    }
};

WXLBlackBox::WXLBlackBox(WXLAppRepository &repository, DeviceMeter &meter, RunEvery runEvery)
    : m_repository(repository)
    , m_meter(meter)
    , m_runEvery(std::move(runEvery))
{
}

WXLBlackBox::~WXLBlackBox() = default;

WXLBlackBox &WXLBlackBox::sharedInstance()
{
    // Never destroyed: a sample may be taken while the process ends.
    static auto *meter
        = new DeviceMeter(DeviceFacts::shared(), WXLConnection::sharedInstance(),
                          WXLDateProvider::sharedInstance(), HostFolders::documents().toLocalFile());
    static auto *instance = new WXLBlackBox(WXLAppRepository::sharedInstance(), *meter, ThreadPool::runEvery);
    return *instance;
}

void WXLBlackBox::setBlackBoxEnabled(bool enabled)
{
    if (enabled == std::exchange(m_isBlackBoxEnabled, enabled))
        return;
    if (enabled)
        startRecording();
    else
        stopReporting();
}

void WXLBlackBox::startRecording()
{
    if (!m_isBlackBoxEnabled || queues())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_queues = std::make_shared<Queues>(m_repository);
    }
    if (std::exchange(m_timersRun, true)) // they went on through the stop
        return;
    m_runEvery(500ms, [this] { reportDataEveryHalfSecond(); });
    m_runEvery(2000ms, [this] { reportDataEveryTwoSecond(); });
}

void WXLBlackBox::stopReporting()
{
    std::shared_ptr<Queues> dropped;
    {
        const std::lock_guard lock(m_mutex);
        dropped = std::exchange(m_queues, nullptr);
    }
    if (dropped)
        dropped->close();
    for (const QString &key :
         {kWXLCpuHistoryKey, kWXLMemoryUsedByAppHistoryKey, kWXLMemoryUsedByDeviceHistoryKey,
          kWXLBatteryHistoryKey, kWXLNetworkHistoryKey, kWXLStorageHistoryKey, kWXLOrientationHistoryKey})
        m_repository.removeObjectForKey(key);
}

void WXLBlackBox::reportDataEveryHalfSecond()
{
    const auto current = queues();
    if (!current)
        return;
    current->cpuQueue.push(m_meter.cpuUsage());
    current->memoryUsedByAppQueue.push(m_meter.memoryUsedByApplication());
    current->memoryUsedByDeviceQueue.push(m_meter.memoryUsedByDevice());
}

void WXLBlackBox::reportDataEveryTwoSecond()
{
    const auto current = queues();
    if (!current)
        return;
    current->networkQueue.push(m_meter.network());
    current->orientationQueue.push(m_meter.orientation());
}

std::shared_ptr<WXLBlackBox::Queues> WXLBlackBox::queues() const
{
    const std::lock_guard lock(m_mutex);
    return m_queues;
}

namespace {

std::optional<QVariantList> getDataSnapshotForKey(const WXLAppRepository &repository, const QString &key)
{
    return historySnapshot(repository, key, QStringLiteral("WXLBlackBox"));
}

} // namespace

std::optional<QVariantList> WXLBlackBox::cpuHistory(const WXLAppRepository &repository)
{
    return getDataSnapshotForKey(repository, kWXLCpuHistoryKey);
}

std::optional<QVariantList> WXLBlackBox::memoryUsedByAppHistory(const WXLAppRepository &repository)
{
    return getDataSnapshotForKey(repository, kWXLMemoryUsedByAppHistoryKey);
}

std::optional<QVariantList> WXLBlackBox::memoryUsedByDeviceHistory(const WXLAppRepository &repository)
{
    return getDataSnapshotForKey(repository, kWXLMemoryUsedByDeviceHistoryKey);
}

std::optional<QVariantList> WXLBlackBox::diskSpaceHistory(const WXLAppRepository &repository)
{
    return getDataSnapshotForKey(repository, kWXLStorageHistoryKey);
}

std::optional<QVariantList> WXLBlackBox::batteryHistory(const WXLAppRepository &repository)
{
    return getDataSnapshotForKey(repository, kWXLBatteryHistoryKey);
}

std::optional<QVariantList> WXLBlackBox::networkHistory(const WXLAppRepository &repository)
{
    return getDataSnapshotForKey(repository, kWXLNetworkHistoryKey);
}

std::optional<QVariantList> WXLBlackBox::orientationHistory(const WXLAppRepository &repository)
{
    return getDataSnapshotForKey(repository, kWXLOrientationHistoryKey);
}

} // namespace wexel

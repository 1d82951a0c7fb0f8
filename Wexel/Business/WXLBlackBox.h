#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include <QVariantList>

#include "Business/DeviceMeter.h"

namespace wexel {

class WXLAppRepository;
class WXLQueue;

inline constexpr qint32 NUMBER_OF_ELEMENTS_IN_HALF_SEC_REPORT = 120;
inline constexpr qint32 NUMBER_OF_ELEMENTS_IN_TWO_SEC_REPORT = 30;

/// Samples the device while the host runs and keeps the last minute of it.
///
/// Made, enabled, without histories -> recording -> stopped: histories gone and deleted; the timers go on without
/// effect -> recording again with new histories. Switched off before the first start, a start does nothing.
/// Lives for the process. Start, stop and switch on the main thread; the timers run on the library's pool.
class WXLBlackBox
{
public:
    /// Runs a block at once and then at every interval, on any thread, for the life of the process.
    using RunEvery = std::function<void(std::chrono::milliseconds interval, std::function<void()> block)>;

    /// The collaborators outlive the black box.
    WXLBlackBox(WXLAppRepository &repository, DeviceMeter &meter, RunEvery runEvery);
    ~WXLBlackBox();
    WXLBlackBox(const WXLBlackBox &) = delete;
    WXLBlackBox &operator=(const WXLBlackBox &) = delete;
    /// First called on the main thread.
    static WXLBlackBox &sharedInstance();

    [[nodiscard]] bool isBlackBoxEnabled() const { return m_isBlackBoxEnabled; }
    /// Off deletes what was recorded. No change does nothing.
    void setBlackBoxEnabled(bool enabled);
    /// Does nothing while switched off, and while it records already.
    void startRecording();
    void stopReporting();

    void reportDataEveryHalfSecond();
    void reportDataEveryTwoSecond();

    // What is stored, oldest first, on any thread; nothing when there is nothing or it cannot be read.
    [[nodiscard]] static std::optional<QVariantList> cpuHistory(const WXLAppRepository &repository);
    [[nodiscard]] static std::optional<QVariantList>
    memoryUsedByAppHistory(const WXLAppRepository &repository);
    [[nodiscard]] static std::optional<QVariantList>
    memoryUsedByDeviceHistory(const WXLAppRepository &repository);
    [[nodiscard]] static std::optional<QVariantList> diskSpaceHistory(const WXLAppRepository &repository);
    [[nodiscard]] static std::optional<QVariantList> batteryHistory(const WXLAppRepository &repository);
    [[nodiscard]] static std::optional<QVariantList> networkHistory(const WXLAppRepository &repository);
    [[nodiscard]] static std::optional<QVariantList> orientationHistory(const WXLAppRepository &repository);

private:
    struct Queues;
    [[nodiscard]] std::shared_ptr<Queues> queues() const;

    WXLAppRepository &m_repository;
    DeviceMeter &m_meter;
    const RunEvery m_runEvery;
    bool m_isBlackBoxEnabled = true;
    bool m_timersRun = false;
    mutable std::mutex m_mutex; // guards `m_queues`
    std::shared_ptr<Queues> m_queues; // null: not recording
};

} // namespace wexel

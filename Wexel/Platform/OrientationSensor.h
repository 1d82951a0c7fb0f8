#pragma once

#include <atomic>
#include <memory>
#include <optional>

class QObject;

namespace wexel {

/// The machine's orientation sensor, in the codes of DeviceFacts::deviceOrientation.
///
/// Not asked -> starting (the first `read`) -> running, or unavailable for good when there is no such sensor.
/// Loading the sensor's plugin takes long, so all of it happens on the background thread. Thread-safe.
class OrientationSensor
{
public:
    /// \param background an object on a thread with a running event loop; outlives this one. Null: no sensor.
    explicit OrientationSensor(QObject *background);

    /// The last reading; absent without a sensor or before its first reading. The first call starts the
    /// sensor.
    std::optional<int> read();

private:
    static constexpr int noReading = -1;

    static void start(QObject *background, const std::weak_ptr<std::atomic<int>> &reading);

    QObject *m_background;
    std::atomic<bool> m_isAsked = false;
    std::shared_ptr<std::atomic<int>> m_reading = std::make_shared<std::atomic<int>>(noReading);
};

} // namespace wexel

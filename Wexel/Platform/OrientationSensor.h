#pragma once

#include <atomic>
#include <memory>
#include <optional>

namespace wexel {

class BackgroundThread;

/// The machine's orientation sensor, in the codes of DeviceFacts::deviceOrientation.
///
/// Not asked -> starting (the first `read`) -> running, or unavailable for good when there is no such sensor.
/// Loading the sensor's plugin takes long, so all of it happens on the background thread. Thread-safe.
class OrientationSensor
{
public:
    /// \param background where the sensor lives; outlives this one. Null: no sensor.
    explicit OrientationSensor(BackgroundThread *background);
    ~OrientationSensor();
    OrientationSensor(const OrientationSensor &) = delete;
    OrientationSensor &operator=(const OrientationSensor &) = delete;

    /// The last reading; absent without a sensor or before its first reading. The first call starts the
    /// sensor.
    std::optional<int> read();

private:
    struct State;

    BackgroundThread *m_background;
    std::atomic<bool> m_isAsked = false;
    std::shared_ptr<State> m_state;
};

} // namespace wexel

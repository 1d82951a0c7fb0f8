#pragma once

#include <functional>

namespace wexel {

class BackgroundThread;

/// Watches the machine's accelerometer, if it has one, for the life of the process.
/// \param background where the sensor lives and where its plugin, which takes long, is loaded
/// \param moved runs there, with the acceleration along the three axes in m/s^2
void watchAccelerometer(BackgroundThread &background,
                        const std::function<void(double x, double y, double z)> &moved);

} // namespace wexel

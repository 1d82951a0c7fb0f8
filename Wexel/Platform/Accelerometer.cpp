#include "Platform/Accelerometer.h"

#include <memory>
#include <utility>

#include <QAccelerometer>

#include "Platform/BackgroundThread.h"

namespace wexel {

namespace {

using Moved = std::function<void(double, double, double)>;

std::unique_ptr<QAccelerometer> startedAccelerometer(Moved moved)
{
    auto sensor = std::make_unique<QAccelerometer>();
    // Qt's stand-in measures nothing.
    if (!sensor->connectToBackend() || sensor->identifier().startsWith("dummy."))
        return nullptr;
    QObject::connect(sensor.get(), &QSensor::readingChanged, sensor.get(),
                     [source = sensor.get(), moved = std::move(moved)] {
                         const QAccelerometerReading *reading = source->reading();
                         moved(reading->x(), reading->y(), reading->z());
                     });
    return sensor->start() ? std::move(sensor) : nullptr;
}

} // namespace

void watchAccelerometer(BackgroundThread &background, const Moved &moved)
{
    const auto sensor = std::make_shared<std::unique_ptr<QAccelerometer>>();
    background.perform([=] { *sensor = startedAccelerometer(moved); });
    background.performAtEnd([sensor] { sensor->reset(); });
}

} // namespace wexel

#include "Platform/OrientationSensor.h"

#include <QAccelerometer>
#include <QMetaObject>
#include <QOrientationSensor>

namespace wexel {

namespace {

int orientationCode(QOrientationReading::Orientation orientation)
{
    switch (orientation) {
    case QOrientationReading::TopUp:
        return 1;
    case QOrientationReading::TopDown:
        return 2;
    case QOrientationReading::RightUp: // the top points left
        return 3;
    case QOrientationReading::LeftUp:
        return 4;
    case QOrientationReading::FaceUp:
        return 5;
    case QOrientationReading::FaceDown:
        return 6;
    case QOrientationReading::Undefined:
        break;
    }
    return 0;
}

// Qt's generic back end derives the orientation from the accelerometer, and its stand-in accelerometer
// measures nothing.
bool isReal(const QOrientationSensor &sensor)
{
    const bool isDerived = sensor.identifier().startsWith("generic.");
    return !isDerived || !QSensor::defaultSensorForType(QAccelerometer::sensorType).startsWith("dummy.");
}

} // namespace

OrientationSensor::OrientationSensor(QObject *background) : m_background(background) { }

std::optional<int> OrientationSensor::read()
{
    if (m_background != nullptr && !m_isAsked.exchange(true)) {
        QMetaObject::invokeMethod(
            m_background,
            [background = m_background, reading = std::weak_ptr(m_reading)] { start(background, reading); },
            Qt::QueuedConnection);
    }
    const int reading = *m_reading;
    return reading == noReading ? std::nullopt : std::optional(reading);
}

// On the background thread. The sensor belongs to `background` and goes with it.
void OrientationSensor::start(QObject *background, const std::weak_ptr<std::atomic<int>> &reading)
{
    auto sensor = std::make_unique<QOrientationSensor>();
    if (!sensor->connectToBackend() || !isReal(*sensor))
        return;
    QObject::connect(sensor.get(), &QSensor::readingChanged, sensor.get(), [sensor = sensor.get(), reading] {
        if (const auto target = reading.lock())
            *target = orientationCode(sensor->reading()->orientation());
        else
            sensor->deleteLater();
    });
    if (sensor->start())
        sensor.release()->setParent(background);
}

} // namespace wexel

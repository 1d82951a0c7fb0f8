#include "Platform/OrientationSensor.h"

#include <QAccelerometer>
#include <QOrientationSensor>

#include "Platform/BackgroundThread.h"

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

constexpr int noReading = -1;

} // namespace

struct OrientationSensor::State {
    std::atomic<int> reading = noReading;
    std::unique_ptr<QOrientationSensor> sensor; // touched on the background thread only

    void start();
};

void OrientationSensor::State::start()
{
    auto candidate = std::make_unique<QOrientationSensor>();
    if (!candidate->connectToBackend() || !isReal(*candidate))
        return;
    QObject::connect(
        candidate.get(), &QSensor::readingChanged, candidate.get(),
        [this, source = candidate.get()] { reading = orientationCode(source->reading()->orientation()); });
    if (candidate->start())
        sensor = std::move(candidate);
}

OrientationSensor::OrientationSensor(BackgroundThread *background)
    : m_background(background)
    , m_state(std::make_shared<State>())
{
}

OrientationSensor::~OrientationSensor()
{
    if (m_isAsked)
        m_background->perform([state = m_state] { state->sensor.reset(); });
}

std::optional<int> OrientationSensor::read()
{
    if (m_background != nullptr && !m_isAsked.exchange(true)) {
        m_background->perform([state = m_state] { state->start(); });
        m_background->performAtEnd([state = m_state] { state->sensor.reset(); });
    }
    const int reading = m_state->reading;
    return reading == noReading ? std::nullopt : std::optional(reading);
}

} // namespace wexel

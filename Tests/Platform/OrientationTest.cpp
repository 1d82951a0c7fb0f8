#include <gtest/gtest.h>

#include <future>

#include <QAccelerometer>
#include <QOrientationSensor>
#include <QSensorBackend>
#include <QSensorBackendFactory>
#include <QSensorManager>

#include "Platform/BackgroundThread.h"
#include "Platform/OrientationSensor.h"

using namespace wexel;

namespace {

QOrientationReading::Orientation measured = QOrientationReading::Undefined;

class FixedBackend final : public QSensorBackend
{
public:
    explicit FixedBackend(QSensor *sensor) : QSensorBackend(sensor)
    {
        setReading<QOrientationReading>(&m_reading);
    }
    void start() override
    {
        m_reading.setOrientation(measured);
        newReadingAvailable();
    }
    void stop() override { }

private:
    QOrientationReading m_reading;
};

class FixedFactory final : public QSensorBackendFactory
{
    QSensorBackend *createBackend(QSensor *sensor) override { return new FixedBackend(sensor); }
};

class OrientationSensorTest : public testing::Test
{
protected:
    /// Blocks run in order: when this one has, those before it have too.
    void catchUp() const
    {
        std::promise<void> done;
        background->perform([&done] { done.set_value(); });
        done.get_future().wait();
    }
    static void useBackend(const QByteArray &identifier)
    {
        static FixedFactory factory;
        if (!QSensorManager::isBackendRegistered(QOrientationSensor::sensorType, "fixed"))
            QSensorManager::registerBackend(QOrientationSensor::sensorType, "fixed", &factory);
        QSensorManager::setDefaultBackend(QOrientationSensor::sensorType, identifier);
    }

    BackgroundThread *background = &BackgroundThread::shared();
};

} // namespace

TEST_F(OrientationSensorTest, readsEveryOrientationInTheBackground)
{
    useBackend("fixed");
    const std::pair<QOrientationReading::Orientation, int> codes[]
        = {{QOrientationReading::TopUp, 1},   {QOrientationReading::TopDown, 2},
           {QOrientationReading::RightUp, 3}, {QOrientationReading::LeftUp, 4},
           {QOrientationReading::FaceUp, 5},  {QOrientationReading::FaceDown, 6}};
    for (const auto &[orientation, code] : codes) {
        measured = orientation;
        OrientationSensor sensor(background);
        sensor.read();
        catchUp();
        EXPECT_EQ(sensor.read(), std::optional(code));
    }
}

TEST_F(OrientationSensorTest, aStandInAccelerometerIsNoSensor)
{
    QSensor::sensorTypes(); // loads the plugins
    if (!QSensor::sensorsForType(QAccelerometer::sensorType).contains("dummy.accelerometer"))
        GTEST_SKIP() << "this Qt has no stand-in accelerometer";
    useBackend("generic.orientation");
    QSensorManager::setDefaultBackend(QAccelerometer::sensorType, "dummy.accelerometer");
    OrientationSensor sensor(background);
    sensor.read();
    catchUp();
    EXPECT_EQ(sensor.read(), std::nullopt);
}

TEST_F(OrientationSensorTest, withoutABackgroundThereIsNoSensor)
{
    useBackend("fixed");
    OrientationSensor sensor(nullptr);
    EXPECT_EQ(sensor.read(), std::nullopt);
    EXPECT_EQ(sensor.read(), std::nullopt);
}

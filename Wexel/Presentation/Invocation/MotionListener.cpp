#include "Presentation/Invocation/MotionListener.h"

#include <utility>

#include <QMoveEvent>

#include "Platform/Accelerometer.h"
#include "Platform/BackgroundThread.h"
#include "Platform/MainScheduler.h"
#include "Presentation/Helpers/HostWindows.h"

namespace wexel {

namespace {

constexpr double windowAmplitude = 40; // points
constexpr double deviceAmplitude = 15; // m/s^2, more than walking or putting the device down gives

/// Shaking along any of the three axes.
struct AxesDetector {
    QElapsedTimer time;
    ShakeDetector axes[3]
        = {ShakeDetector(deviceAmplitude), ShakeDetector(deviceAmplitude), ShakeDetector(deviceAmplitude)};

    AxesDetector() { time.start(); }
    bool moved(const double (&values)[3])
    {
        bool shaken = false;
        for (int axis = 0; axis < 3; ++axis)
            shaken |= axes[axis].moved(ShakeDetector::Time(time.elapsed()), values[axis]);
        return shaken;
    }
};

} // namespace

MotionListener::MotionListener(QObject *application, std::function<void()> shaken)
    : QObject(application)
    , m_shaken(std::move(shaken))
    , m_detector(windowAmplitude)
{
    m_time.start();
    application->installEventFilter(this);
    watchDevice();
}

void MotionListener::watchDevice()
{
    const auto detector = std::make_shared<AxesDetector>(); // touched on the background thread only
    watchAccelerometer(BackgroundThread::shared(),
                       [detector, listener = QPointer(this)](double x, double y, double z) {
                           if (detector->moved({x, y, z}))
                               MainScheduler::shared().perform([listener] {
                                   if (listener)
                                       listener->m_shaken();
                               });
                       });
}

bool MotionListener::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Move && watched->isWindowType())
        windowMoved(static_cast<QWindow *>(watched), static_cast<QMoveEvent *>(event)->pos().x());
    return false;
}

void MotionListener::windowMoved(QWindow *window, int x)
{
    if (!window->isTopLevel() || isPopup(window) || isOwn(window))
        return;
    if (std::exchange(m_window, window) != window)
        m_detector = ShakeDetector(windowAmplitude);
    if (m_detector.moved(ShakeDetector::Time(m_time.elapsed()), x))
        m_shaken();
}

} // namespace wexel

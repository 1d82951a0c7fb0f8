#pragma once

#include <functional>

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QWindow>

#include "Helpers/ShakeDetector.h"

namespace wexel {

/// Notices shaking: of the device, where it has an accelerometer, and of any window of the host, as a desktop has it.
/// Lives as long as the application object. Main thread only.
class MotionListener final : public QObject
{
public:
    /// \param shaken called for each shake
    MotionListener(QObject *application, std::function<void()> shaken);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void windowMoved(QWindow *window, int x);
    void watchDevice();

    const std::function<void()> m_shaken;
    QElapsedTimer m_time;
    QPointer<QWindow> m_window; ///< the one that moved last
    ShakeDetector m_detector;
};

} // namespace wexel

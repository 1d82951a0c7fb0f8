#pragma once

#include <functional>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace wexel {

/// Runs the event loop until the condition holds. False when it still does not after the deadline.
inline bool spinUntil(const std::function<bool()> &condition, int deadlineMilliseconds = 60'000)
{
    constexpr int stepMilliseconds = 5; // work on other threads does not wake this loop by itself
    QTimer wakeUp;
    wakeUp.start(stepMilliseconds);
    const QDeadlineTimer deadline(deadlineMilliseconds);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace wexel

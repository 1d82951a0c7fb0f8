#pragma once

#include <atomic>
#include <memory>

#include <QObject>
#include <QSize>

namespace wexel {

/// The application's primary screen. Made, asked for its size and destroyed on the main thread; its
/// orientation, which follows the screen's signals, may be read on any thread. Without a GUI application: no
/// size, orientation unknown.
class MainScreen
{
public:
    MainScreen();

    /// In native pixels; empty without a screen.
    [[nodiscard]] QSize nativeSize() const;
    /// As DeviceFacts::deviceOrientation, 0 to 4.
    [[nodiscard]] int orientation() const { return m_orientation; }

private:
    void follow();
    void update();

    std::atomic<int> m_orientation = 0;
    QObject m_context; // of the connection to the application
    std::unique_ptr<QObject> m_followed; // of those to the screen being followed
};

} // namespace wexel

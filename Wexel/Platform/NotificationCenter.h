#pragma once

#include <functional>
#include <mutex>
#include <vector>

#include <QString>

namespace wexel {

inline const QString ApplicationWillEnterForegroundNotification
    = QStringLiteral("ApplicationWillEnterForegroundNotification");
inline const QString ApplicationWillResignActiveNotification
    = QStringLiteral("ApplicationWillResignActiveNotification");
inline const QString ApplicationDidEnterBackgroundNotification
    = QStringLiteral("ApplicationDidEnterBackgroundNotification");

/// Tells many what one knows. Observers stay until they are removed. Thread-safe.
class NotificationCenter
{
public:
    /// Fed with the application's state, see ApplicationState. Never destroyed.
    static NotificationCenter &defaultCenter();

    /// \return what `removeObserver` takes
    int addObserver(const QString &name, std::function<void()> block);
    /// Called on the thread that posts, its block is certain not to run afterwards.
    void removeObserver(int observer);
    /// Runs the observers of that name, in the order they came, on the calling thread.
    void post(const QString &name) const;

private:
    struct Observer {
        int number;
        QString name;
        std::function<void()> block;
    };
    mutable std::mutex m_mutex; // guards what follows; not held while a block runs
    std::vector<Observer> m_observers;
    int m_lastNumber = 0;
};

} // namespace wexel

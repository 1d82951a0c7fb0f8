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

/// Tells many what one knows. Observers stay for the life of the centre. Thread-safe.
class NotificationCenter
{
public:
    /// Fed with the application's state, see ApplicationState. Never destroyed.
    static NotificationCenter &defaultCenter();

    void addObserver(const QString &name, std::function<void()> block);
    /// Runs the observers of that name, in the order they came, on the calling thread.
    void post(const QString &name) const;

private:
    struct Observer {
        QString name;
        std::function<void()> block;
    };
    mutable std::mutex m_mutex; // guards `m_observers`; not held while a block runs
    std::vector<Observer> m_observers;
};

} // namespace wexel

#pragma once

#include <functional>
#include <optional>

#include <QDateTime>
#include <QString>
#include <QVariantList>

#include "Business/WXLQueue.h"

namespace wexel {

class NotificationCenter;
class WXLDateProvider;

inline constexpr qint32 NUMBER_OF_SESSION_OBJECTS_TO_REPORT = 15;

/// Codes of the session states.
inline const QString sessionEnteredForeground = QStringLiteral("0");
inline const QString sessionResignedActive = QStringLiteral("1");
inline const QString sessionEnteredBackground = QStringLiteral("2");

/// Records when the application came to the foreground, became inactive or went to the background, and has taps and
/// requests older than the oldest of these changes dropped. Lives for the process; main thread.
class WXLSessionReporter
{
public:
    /// Called after every change with the time of the oldest one that is kept, on a thread of the pool.
    using Prune = std::function<void(const QDateTime &)>;

    /// Records the start as coming to the foreground, a second ago. The collaborators outlive the reporter, which lives on
    /// while changes are on their way.
    WXLSessionReporter(WXLAppRepository &repository, const WXLDateProvider &dateProvider,
                       NotificationCenter &notifications, Prune prune);
    static WXLSessionReporter &sharedInstance();

    void reportState(const QString &code);
    /// \param timestamp as WXLDateProvider writes it
    void reportState(const QString &code, const QString &timestamp);

    [[nodiscard]] SerialQueue &workingQueue() const { return m_sessionQueue.workingQueue(); }

    // The stored changes, oldest first, on any thread.
    [[nodiscard]] static QVariantList sessionHistory(const WXLAppRepository &repository);
    [[nodiscard]] static std::optional<QString> oldestSessionTimestamp(const WXLAppRepository &repository);
    [[nodiscard]] static std::optional<QDateTime> oldestSessionDate(const WXLAppRepository &repository);

private:
    WXLAppRepository &m_repository;
    const WXLDateProvider &m_dateProvider;
    const Prune m_prune;
    WXLQueue m_sessionQueue;
};

} // namespace wexel

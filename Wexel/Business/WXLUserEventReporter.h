#pragma once

#include <memory>
#include <optional>

#include <QDateTime>
#include <QMetaObject>
#include <QString>
#include <QVariantList>

#include "Business/WXLTimeQueue.h"

namespace wexel {

class TouchRecord;
class WXLAppRepository;
class WXLDateProvider;

/// Records the user's taps. Lives for the process. Taps are reported on the main thread, which is never made to wait
/// for the disk; everything else is thread-safe.
class WXLUserEventReporter
{
public:
    /// The collaborators outlive the reporter.
    WXLUserEventReporter(WXLAppRepository &repository, const WXLDateProvider &dateProvider);
    static WXLUserEventReporter &shared();

    /// Records the class of the view, the class of the screen and the property of the screen that holds the view.
    /// \param topController the screen that the view lies on, which only the screens of a build can tell; null for none
    void reportViewTouched(const QObject &view, const QObject *topController);
    void reportTouch(const std::shared_ptr<const TouchRecord> &record);
    void removeRecordsOlderThan(const QDateTime &limit);
    [[nodiscard]] WXLTimeQueue &eventQueue() { return m_eventQueue; }

    /// Guesses under which property a view is held. The names of all of the class's own properties and the classes of its
    /// own object-typed ones, each in the order of their declaration, are paired by their place in the list, although
    /// the second list is shorter by every number, text or colour declared in between. Of several properties of the
    /// class the last counts; empty when there is none.
    /// \param className as `hostClassName` gives it
    [[nodiscard]] static QString getPropertyName(const QString &className,
                                                 const QMetaObject *viewControllerClass);
    /// The stored taps, oldest first, on any thread; nothing when there are none or they cannot be read.
    [[nodiscard]] static std::optional<QVariantList> userEventHistory(const WXLAppRepository &repository);

private:
    WXLAppRepository &m_repository;
    const WXLDateProvider &m_dateProvider;
    WXLTimeQueue m_eventQueue;
};

} // namespace wexel

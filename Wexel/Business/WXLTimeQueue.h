#pragma once

#include <memory>
#include <optional>

#include <QDateTime>
#include <QString>

#include "Business/WXLBlackBoxObject.h"

namespace wexel {

class PersistedHistory;
class SerialQueue;
class WXLAppRepository;

/// A history of any number of entries, pruned by age when its owner asks for it. Only its size is limited, so that a host
/// that runs for days pays no more, and that a report with it can be sent: beyond `maximumBytes` the oldest go. Stored
/// whole under its key after every change, and loaded from there. Thread-safe.
class WXLTimeQueue
{
public:
    /// Of the archived entries together.
    static constexpr qsizetype maximumBytes = 2 * 1024 * 1024;

    WXLTimeQueue(WXLAppRepository &repository, const QString &key);

    /// Appends in the background, in the order of the calls. The same object once more moves to the end, with the
    /// fields that it has by then. Once it was pushed, change an object only on the working queue, which reads it. A null
    /// record does nothing.
    /// \param timestampLimit deliberately ignored: only `removeRecordsOlderThan` prunes
    void push(const std::shared_ptr<const WXLBlackBoxObject> &record,
              const std::optional<QDateTime> &timestampLimit);
    /// Drops, in the background after the pushes before it, what is strictly older than the limit. A record without a
    /// readable timestamp stays.
    void removeRecordsOlderThan(const QDateTime &limit);

    [[nodiscard]] WXLAppRepository &repository() const;
    [[nodiscard]] const QString &key() const;
    [[nodiscard]] SerialQueue &workingQueue() const;

private:
    std::shared_ptr<PersistedHistory> m_queue;
};

} // namespace wexel

#include "Business/WXLTimeQueue.h"

#include "Business/PersistedHistory.h"

namespace wexel {

WXLTimeQueue::WXLTimeQueue(WXLAppRepository &repository, const QString &key)
    : m_queue(PersistedHistory::make(repository, key, QStringLiteral("WXLTimeQueue"),
                                     QStringLiteral("wxl_timeQueueArchivingQueue")))
{
}

void WXLTimeQueue::push(const std::shared_ptr<const WXLBlackBoxObject> &record,
                        const std::optional<QDateTime> & /*timestampLimit*/)
{
    if (!record)
        return;
    m_queue->async([record](PersistedHistory &queue) {
        queue.remove(record);
        queue.append(record);
        queue.limit(maximumBytes);
    });
}

// Not on the caller's thread, where it would race with the pushes and wait for the disk at start-up.
void WXLTimeQueue::removeRecordsOlderThan(const QDateTime &limit)
{
    m_queue->async([limit](PersistedHistory &queue) { queue.removeOlderThan(limit); });
}

WXLAppRepository &WXLTimeQueue::repository() const
{
    return m_queue->repository();
}

const QString &WXLTimeQueue::key() const
{
    return m_queue->key();
}

SerialQueue &WXLTimeQueue::workingQueue() const
{
    return m_queue->workingQueue();
}

} // namespace wexel

#include "Business/WXLQueue.h"

#include <algorithm>

#include "Business/PersistedHistory.h"

namespace wexel {

WXLQueue::WXLQueue(WXLAppRepository &repository, qint32 capacity, const QString &key)
    : m_numberOfElements(static_cast<size_t>(std::max(capacity, 1)))
    , m_queue(PersistedHistory::make(repository, key, QStringLiteral("WXLQueue"),
                                     QStringLiteral("wxl_queueArchivingQueue")))
{
}

void WXLQueue::push(const std::shared_ptr<const WXLBlackBoxObject> &record)
{
    if (!record)
        return;
    m_queue->async([record, capacity = m_numberOfElements](PersistedHistory &queue) {
        if (queue.count() == capacity) // not "at least": a longer history keeps what it has
            queue.removeFirst();
        queue.append(record);
    });
}

void WXLQueue::close()
{
    m_queue->close();
}

WXLAppRepository &WXLQueue::repository() const
{
    return m_queue->repository();
}

const QString &WXLQueue::key() const
{
    return m_queue->key();
}

SerialQueue &WXLQueue::workingQueue() const
{
    return m_queue->workingQueue();
}

} // namespace wexel

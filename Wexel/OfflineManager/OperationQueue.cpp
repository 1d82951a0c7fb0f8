#include "OfflineManager/OperationQueue.h"

#include "Platform/ApplicationEnd.h"

namespace wexel {

OperationQueue::OperationQueue(SerialQueue underlyingQueue)
    : m_underlyingQueue(std::move(underlyingQueue))
    , m_worker(m_underlyingQueue.label() + QStringLiteral("-operations"))
{
}

void OperationQueue::addOperation(std::shared_ptr<Operation> operation)
{
    bool first = false;
    {
        const std::lock_guard lock(m_mutex);
        first = m_count == 0;
        ++m_count;
        m_waiting.push_back(std::move(operation));
    }
    if (first)
        startNext();
}

std::size_t OperationQueue::operationCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_count;
}

void OperationQueue::startNext()
{
    m_underlyingQueue.async([self = shared_from_this()] {
        std::shared_ptr<Operation> operation;
        {
            const std::lock_guard lock(self->m_mutex);
            operation = std::move(self->m_waiting.front());
            self->m_waiting.pop_front();
        }
        self->m_worker.async([self, operation = std::move(operation)] { self->run(operation); });
    });
}

void OperationQueue::run(const std::shared_ptr<Operation> &operation)
{
    if (ApplicationEnd::hasBegun())
        return;
    operation->main();
    bool more = false;
    {
        const std::lock_guard lock(m_mutex);
        more = --m_count > 0;
    }
    if (operation->completionBlock)
        operation->completionBlock();
    if (more)
        startNext();
}

} // namespace wexel

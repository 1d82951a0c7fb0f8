#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include "Platform/SerialQueue.h"

namespace wexel {

/// A unit of work that blocks its thread until it is done.
class Operation
{
public:
    virtual ~Operation() = default;
    virtual void main() = 0;
    /// Runs after `main`, on the same thread, when the operation no longer counts.
    std::function<void()> completionBlock;
};

/// Runs one operation at a time, in the order they came. Each waits for its turn on the underlying queue before it
/// starts, so a block there that adds several operations has added them all before the first one runs; it then runs
/// beside that queue, which stays free for other work. Operations that have not started when the application ends
/// never do. Thread-safe.
class OperationQueue : public std::enable_shared_from_this<OperationQueue>
{
public:
    explicit OperationQueue(SerialQueue underlyingQueue);

    void addOperation(std::shared_ptr<Operation> operation);
    /// Operations that have not finished yet, the running one included.
    [[nodiscard]] std::size_t operationCount() const;

private:
    void startNext();
    void run(const std::shared_ptr<Operation> &operation);

    SerialQueue m_underlyingQueue;
    SerialQueue m_worker;
    mutable std::mutex m_mutex; // guards the members below; never held while an operation runs
    std::deque<std::shared_ptr<Operation>> m_waiting;
    std::size_t m_count = 0;
};

} // namespace wexel

#pragma once

#include <functional>
#include <memory>

#include <QString>

namespace wexel {

/// Runs blocks one after the other, in the order they came, on threads borrowed from the library's pool. It
/// holds no thread while it has nothing to do. Thread-safe; the queue may go away with blocks pending, which
/// still run.
///
/// When the application ends, blocks that are already queued are finished, within `ThreadPool::endingLimit`.
class SerialQueue
{
public:
    explicit SerialQueue(QString label);

    [[nodiscard]] const QString &label() const { return m_label; }
    void async(std::function<void()> block);
    /// Blocks the caller until everything queued so far has run. Never call it from a block of this queue.
    void waitUntilDone();

private:
    struct State;
    QString m_label;
    std::shared_ptr<State> m_state;
};

} // namespace wexel

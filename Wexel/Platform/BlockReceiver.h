#pragma once

#include <deque>
#include <functional>
#include <mutex>

#include <QObject>

namespace wexel {

/// A QObject that runs blocks, in order, on the thread it lives in. `post` may be called from any thread.
class BlockReceiver final : public QObject
{
public:
    void post(std::function<void()> block);
    /// Drops what is pending and whatever comes later.
    void close();

protected:
    void customEvent(QEvent *event) override;

private:
    // One block an event, so that a block which runs an event loop of its own does not hold up the others.
    void runNext();

    std::mutex m_mutex; // guards the members below; never held while a block runs
    std::deque<std::function<void()>> m_blocks;
    bool m_posted = false;
    bool m_closed = false;
};

} // namespace wexel

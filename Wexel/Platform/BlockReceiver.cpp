#include "Platform/BlockReceiver.h"

#include <utility>

#include <QCoreApplication>
#include <QEvent>

namespace wexel {

void BlockReceiver::post(std::function<void()> block)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed)
            return;
        m_blocks.push_back(std::move(block));
        if (std::exchange(m_posted, true))
            return;
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void BlockReceiver::runNext()
{
    std::function<void()> block;
    {
        const std::lock_guard lock(m_mutex);
        m_posted = !m_blocks.empty();
        if (!m_posted)
            return;
        block = std::move(m_blocks.front());
        m_blocks.pop_front();
        m_posted = !m_blocks.empty();
        if (m_posted)
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
    block();
}

void BlockReceiver::close()
{
    std::deque<std::function<void()>> dropped;
    const std::lock_guard lock(m_mutex);
    m_closed = true;
    dropped = std::exchange(m_blocks, {});
}

void BlockReceiver::customEvent(QEvent *)
{
    runNext();
}

} // namespace wexel

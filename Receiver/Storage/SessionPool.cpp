#include "Storage/SessionPool.h"

#include "Storage/StorageError.h"

namespace wexel::receiver {

using Poco::Data::Session;

SessionPool::Loan::Loan(SessionPool &pool) : m_pool(pool), m_session(pool.take()) { }

SessionPool::Loan::~Loan()
{
    m_pool.giveBack(m_session);
}

void SessionPool::Loan::renew()
{
    m_session = m_pool.m_open();
}

Session SessionPool::take()
{
    std::unique_lock lock(m_mutex);
    if (!m_returned.wait_for(lock, m_patience, [this] { return m_free > 0; }))
        throw StorageError(StorageError::Kind::Failed, "All sessions with the database are busy");
    --m_free;
    if (!m_idle.empty()) {
        Session session = m_idle.back();
        m_idle.pop_back();
        return session;
    }
    lock.unlock();
    try {
        return m_open();
    } catch (...) {
        lock.lock();
        ++m_free;
        m_returned.notify_one();
        throw;
    }
}

void SessionPool::giveBack(Session session)
{
    const std::lock_guard lock(m_mutex);
    // A session that lost its connection in a transaction believes in the transaction ever after.
    if (session.isConnected() && !session.isTransaction())
        m_idle.push_back(std::move(session));
    ++m_free;
    m_returned.notify_one();
}

} // namespace wexel::receiver

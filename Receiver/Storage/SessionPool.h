#pragma once

#include <Poco/Data/Session.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

namespace wexel::receiver {

/// Sessions that are open, for one thread each. Every thread may use it.
class SessionPool
{
public:
    /// \a open makes a session; no more than \a most are taken at once, and nobody waits for one longer than \a patience.
    SessionPool(std::function<Poco::Data::Session()> open, std::size_t most,
                std::chrono::milliseconds patience)
        : m_open(std::move(open))
        , m_patience(patience)
        , m_free(most)
    {
    }

    /// A session for as long as it lives. Waits for one if all are taken. Throws StorageError.
    class Loan
    {
    public:
        explicit Loan(SessionPool &pool);
        ~Loan();
        Loan(const Loan &) = delete;
        Loan &operator=(const Loan &) = delete;

        Poco::Data::Session &session() { return m_session; }
        /// Takes a new one in place of a session that was lost.
        void renew();

    private:
        SessionPool &m_pool;
        Poco::Data::Session m_session;
    };

private:
    Poco::Data::Session take();
    void giveBack(Poco::Data::Session session);

    std::function<Poco::Data::Session()> m_open;
    std::chrono::milliseconds m_patience;
    std::mutex m_mutex;
    std::condition_variable m_returned;
    std::size_t m_free; ///< how many more may be taken; guarded by m_mutex
    std::vector<Poco::Data::Session> m_idle; ///< guarded by m_mutex
};

} // namespace wexel::receiver

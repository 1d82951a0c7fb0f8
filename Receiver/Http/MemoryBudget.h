#pragma once

#include <cstdint>
#include <mutex>

namespace wexel::receiver {

/// Bounds what all requests together hold in memory. Every thread may use it.
class MemoryBudget
{
public:
    explicit MemoryBudget(std::uint64_t bytes) : m_left(bytes) { }

    /// A part of the budget, for as long as it lives.
    class Share
    {
    public:
        Share(MemoryBudget &budget, std::uint64_t bytes)
            : m_budget(budget)
            , m_bytes(budget.take(bytes) ? bytes : 0)
            , m_isGranted(bytes == m_bytes)
        {
        }
        ~Share() { m_budget.giveBack(m_bytes); }
        Share(const Share &) = delete;
        Share &operator=(const Share &) = delete;

        /// False if there was not enough left.
        bool isGranted() const { return m_isGranted; }

    private:
        MemoryBudget &m_budget;
        std::uint64_t m_bytes;
        bool m_isGranted;
    };

private:
    bool take(std::uint64_t bytes)
    {
        const std::lock_guard lock(m_mutex);
        const bool isEnough = bytes <= m_left;
        m_left -= isEnough ? bytes : 0;
        return isEnough;
    }

    void giveBack(std::uint64_t bytes)
    {
        const std::lock_guard lock(m_mutex);
        m_left += bytes;
    }

    std::mutex m_mutex;
    std::uint64_t m_left; ///< guarded by m_mutex
};

} // namespace wexel::receiver

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
        explicit Share(MemoryBudget &budget) : m_budget(budget) { }
        ~Share() { m_budget.giveBack(m_bytes); }
        Share(const Share &) = delete;
        Share &operator=(const Share &) = delete;

        /// False, with nothing changed, if there is not so much left.
        bool grow(std::uint64_t bytes)
        {
            const bool isGranted = m_budget.take(bytes);
            m_bytes += isGranted ? bytes : 0;
            return isGranted;
        }

    private:
        MemoryBudget &m_budget;
        std::uint64_t m_bytes = 0;
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

#include "Platform/NotificationCenter.h"

namespace wexel {

NotificationCenter &NotificationCenter::defaultCenter()
{
    static auto *instance = new NotificationCenter;
    return *instance;
}

int NotificationCenter::addObserver(const QString &name, std::function<void()> block)
{
    const std::lock_guard lock(m_mutex);
    m_observers.push_back({++m_lastNumber, name, std::move(block)});
    return m_lastNumber;
}

void NotificationCenter::removeObserver(int observer)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_observers, [observer](const Observer &known) { return known.number == observer; });
}

void NotificationCenter::post(const QString &name) const
{
    std::vector<std::function<void()>> blocks;
    {
        const std::lock_guard lock(m_mutex);
        for (const auto &observer : m_observers) {
            if (observer.name == name)
                blocks.push_back(observer.block);
        }
    }
    for (const auto &block : blocks)
        block();
}

} // namespace wexel

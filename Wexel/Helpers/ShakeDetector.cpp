#include "Helpers/ShakeDetector.h"

#include <cmath>

namespace wexel {

bool ShakeDetector::moved(Time now, double value)
{
    const double way = value - m_turn.value_or(value);
    const int direction = way < 0 ? -1 : 1;
    const bool isNewSwing = direction != m_direction && std::abs(way) >= m_amplitude;
    if (!m_turn || isNewSwing || direction == m_direction)
        m_turn = value;
    if (!isNewSwing)
        return false;
    m_direction = direction;
    m_swings.push_back(now);
    while (now - m_swings.front() > period)
        m_swings.pop_front();
    if (m_swings.size() < swings)
        return false;
    m_swings.clear(); // what is left of this swing is none of the next shake's
    return true;
}

} // namespace wexel

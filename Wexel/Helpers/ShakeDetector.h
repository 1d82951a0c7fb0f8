#pragma once

#include <chrono>
#include <deque>
#include <optional>

namespace wexel {

/// Tells shaking from other movement: a value (the place of a window, or the acceleration along an axis) that goes back
/// and forth, widely and quickly. One shake counts once. Not thread-safe.
class ShakeDetector
{
public:
    using Time = std::chrono::milliseconds; ///< since any fixed moment

    static constexpr int swings = 4; ///< left, right, left, right
    static constexpr Time period{1000}; ///< in which these have to happen

    /// \param amplitude how far a swing has to go at least, in the value's unit
    explicit ShakeDetector(double amplitude) : m_amplitude(amplitude) { }

    /// \return true when this movement completes a shake
    [[nodiscard]] bool moved(Time now, double value);

private:
    double m_amplitude;
    std::optional<double> m_turn; ///< the farthest value since the last turn
    int m_direction = 0; ///< of the swing under way; 0 before the first
    std::deque<Time> m_swings; ///< when each of the last swings became wide enough
};

} // namespace wexel

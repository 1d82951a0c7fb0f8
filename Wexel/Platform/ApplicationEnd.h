#pragma once

#include <functional>

namespace wexel {

/// The moment when the application object goes away, or the process exits without destroying it. The library's singletons and threads outlive it, so
/// whatever must stop touching Qt, or must still be written, registers here. Thread-safe.
class ApplicationEnd
{
public:
    /// In the order in which they end: first nobody waits for the main thread any more, then requests in
    /// flight are abandoned, then running work (a report being saved) is finished, then the store is written.
    enum class Phase { MainThread, Network, Work, Storage };

    /// Runs the block when the application object is being destroyed, or when the
    /// main thread calls std::exit; on the main thread.
    static void perform(Phase phase, std::function<void()> block);
    /// True from the moment when the application object is being destroyed, after it was first asked while one was
    /// there.
    [[nodiscard]] static bool hasBegun();
};

} // namespace wexel

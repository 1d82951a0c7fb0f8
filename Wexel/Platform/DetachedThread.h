#pragma once

#include <functional>

namespace wexel {

/// Runs the block on a thread of its own that nobody waits for, not even the end of the application or of the
/// process: for calls into the system that may hang. A thread whose block returns after the application object has
/// gone touches nothing any more. False when the system has no thread left; the block is dropped then.
bool runDetached(std::function<void()> block);

} // namespace wexel

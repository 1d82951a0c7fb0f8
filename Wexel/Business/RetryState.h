#pragma once

#include <atomic>
#include <cstdint>

namespace wexel {

// The process-wide state of the two retry schedules, in seconds where it is a delay. Each delay is doubled before it
// is used, so the retries come after 10, 20, 40 ... seconds. Written from the main thread and from completions.

inline constexpr std::int64_t initialDelay = 5; ///< of the authorisation
inline constexpr std::int64_t initialDelayInterval = 5; ///< of the uploads

extern std::atomic<std::int64_t> delay; ///< current delay of the authorisation's retry
extern std::atomic<bool>
    reauthorizationPending; ///< from the moment a retry is armed until it fires or is cancelled

extern std::atomic<std::int64_t> delayInterval; ///< current delay of the uploads' retry
extern std::atomic<bool> retryUploadNeeded; ///< an upload of the current pass failed, but not for archiving
extern std::atomic<bool> timerRunning; ///< a retry of the uploads is armed

} // namespace wexel

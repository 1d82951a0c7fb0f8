#include "Business/RetryState.h"

namespace wexel {

std::atomic<std::int64_t> delay = initialDelay;
std::atomic<bool> reauthorizationPending = false;

std::atomic<std::int64_t> delayInterval = initialDelayInterval;
std::atomic<bool> retryUploadNeeded = false;
std::atomic<bool> timerRunning = false;

} // namespace wexel

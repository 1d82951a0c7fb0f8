#include "Access/SignIn.h"

#include "Access/Password.h"
#include "Log.h"
#include "Metrics.h"

namespace wexel::receiver {

SignIn::Outcome SignIn::check(const std::string &peer, const std::string &password)
{
    LoginThrottle::Attempt attempt(m_throttle, throttledPeer(peer), LoginThrottle::Clock::now());
    if (const auto wait = attempt.refusal()) {
        logEvent("sign_in_throttled", {{"peer", peer}});
        Answer answer = errorAnswer(Status::HTTP_TOO_MANY_REQUESTS, "Too many attempts; try later");
        answer.headers.emplace_back("Retry-After", std::to_string(wait->count()));
        return {std::move(answer), {}};
    }
    const std::string hash = m_administrator.hash();
    if (hash.empty() || !isPassword(hash, password)) {
        logEvent("sign_in_failed", {{"peer", peer}});
        Metrics::instance().count(Metrics::Event::SignInFailed);
        return {errorAnswer(Status::HTTP_UNAUTHORIZED, "The password is wrong"), {}};
    }
    attempt.succeed();
    return {std::nullopt, hash};
}

} // namespace wexel::receiver

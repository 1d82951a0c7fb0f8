#pragma once

#include "Access/Administrator.h"
#include "Access/LoginThrottle.h"
#include "Http/Answer.h"

namespace wexel::receiver {

/// Checks the administrator's password, no more often than the throttle allows. Every thread may use it.
class SignIn
{
public:
    explicit SignIn(Administrator &administrator) : m_administrator(administrator) { }

    struct Outcome {
        std::optional<Answer>
            refusal; ///< 401, or 429 with the time to wait; nothing if the password is right
        std::string hash; ///< of the right password
    };

    /// Throws StorageError.
    Outcome check(const std::string &peer, const std::string &password);
    /// Whether no other password was set since the check.
    bool stillHolds(const Outcome &outcome) { return m_administrator.hash() == outcome.hash; }

private:
    Administrator &m_administrator;
    LoginThrottle m_throttle;
};

} // namespace wexel::receiver

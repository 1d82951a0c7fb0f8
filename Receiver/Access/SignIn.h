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

    /// Nothing if \a password is right; else the answer that says so: 401, or 429 with the time to wait. Throws
    /// StorageError.
    std::optional<Answer> refusal(const std::string &peer, const std::string &password);

private:
    Administrator &m_administrator;
    LoginThrottle m_throttle;
};

} // namespace wexel::receiver

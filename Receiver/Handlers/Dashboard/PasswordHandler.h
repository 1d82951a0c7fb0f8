#pragma once

#include "Access/SignIn.h"
#include "Http/Handler.h"

namespace wexel::receiver {

/// POST dashboard/api/password, {"current", "new"}: changes the password and ends all other sessions; 403 for a wrong
/// current one, 429 after too many.
class PasswordHandler : public Handler
{
public:
    PasswordHandler(SignIn &signIn, Administrator &administrator)
        : m_signIn(signIn)
        , m_administrator(administrator)
    {
    }

    Answer handle(Request &request) override;

private:
    SignIn &m_signIn;
    Administrator &m_administrator;
};

} // namespace wexel::receiver

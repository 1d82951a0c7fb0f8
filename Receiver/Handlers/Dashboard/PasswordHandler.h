#pragma once

#include "Access/SessionCookie.h"
#include "Access/SessionStore.h"
#include "Access/SignIn.h"
#include "Http/Handler.h"

namespace wexel::receiver {

/// POST dashboard/api/password, {"current", "new"}: changes the password, ends all sessions and answers a new one as
/// signing in does; 403 for a wrong current one, 429 after too many.
class PasswordHandler : public Handler
{
public:
    PasswordHandler(SignIn &signIn, Administrator &administrator, SessionStore &sessions,
                    SessionCookie cookie)
        : m_signIn(signIn)
        , m_administrator(administrator)
        , m_sessions(sessions)
        , m_cookie(cookie)
    {
    }

    Answer handle(Request &request) override;

private:
    SignIn &m_signIn;
    Administrator &m_administrator;
    SessionStore &m_sessions;
    SessionCookie m_cookie;
};

} // namespace wexel::receiver

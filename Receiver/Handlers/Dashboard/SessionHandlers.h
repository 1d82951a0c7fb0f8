#pragma once

#include "Access/Gatekeeper.h"
#include "Access/SignIn.h"
#include "Http/Handler.h"

namespace wexel::receiver {

/// What a browser needs to go on in a new session: its cookie, and the text against forged requests.
Answer sessionAnswer(const std::string &token, const SessionCookie &cookie);

/// POST dashboard/api/session, {"password"}: starts a session; 401 for a wrong password, 429 after too many.
class SignInHandler : public Handler
{
public:
    SignInHandler(SignIn &signIn, SessionStore &sessions, const Gatekeeper &gatekeeper, SessionCookie cookie)
        : m_signIn(signIn)
        , m_sessions(sessions)
        , m_gatekeeper(gatekeeper)
        , m_cookie(cookie)
    {
    }

    Answer handle(Request &request) override;

private:
    SignIn &m_signIn;
    SessionStore &m_sessions;
    const Gatekeeper &m_gatekeeper;
    SessionCookie m_cookie;
};

/// GET dashboard/api/session: what a page that was opened anew needs to go on in its session.
class SessionHandler : public Handler
{
public:
    explicit SessionHandler(std::string version) : m_version(std::move(version)) { }

    Answer handle(Request &request) override;

private:
    std::string m_version;
};

/// DELETE dashboard/api/session: ends it.
class SignOutHandler : public Handler
{
public:
    SignOutHandler(SessionStore &sessions, SessionCookie cookie) : m_sessions(sessions), m_cookie(cookie) { }

    Answer handle(Request &request) override;

private:
    SessionStore &m_sessions;
    SessionCookie m_cookie;
};

} // namespace wexel::receiver

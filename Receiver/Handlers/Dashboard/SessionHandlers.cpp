#include "Handlers/Dashboard/SessionHandlers.h"

#include "Http/JsonBody.h"
#include "Log.h"

namespace wexel::receiver {

Answer sessionAnswer(const std::string &token, const SessionCookie &cookie)
{
    Answer answer = jsonAnswer("{\"csrf\":" + jsonString(SessionStore::describe(token).csrf) + "}");
    answer.headers.emplace_back("Set-Cookie", cookie.keeping(token));
    return answer;
}

Answer SignInHandler::handle(Request &request)
{
    m_gatekeeper.refuseForeignPage(
        request.header); // or it could sign a browser in to listen to what is done there
    const std::string password = textIn(*readJsonBody(request), "password");
    SignIn::Outcome outcome = m_signIn.check(request.peer, password);
    if (outcome.refusal)
        return std::move(*outcome.refusal);
    const std::string token = m_sessions.start(currentMilliseconds());
    if (!m_signIn.stillHolds(outcome)) {
        m_sessions.end(SessionStore::describe(token).digest);
        return errorAnswer(Status::HTTP_UNAUTHORIZED, "The password has just been changed");
    }
    logEvent("signed_in", {{"peer", request.peer}});
    return sessionAnswer(token, m_cookie);
}

Answer SessionHandler::handle(Request &request)
{
    return jsonAnswer("{\"csrf\":" + jsonString(request.caller.csrf) + ",\"version\":" + jsonString(m_version)
                      + "}");
}

Answer SignOutHandler::handle(Request &request)
{
    m_sessions.end(request.caller.session);
    logEvent("signed_out", {{"peer", request.peer}});
    Answer answer = {.status = Status::HTTP_NO_CONTENT};
    answer.headers.emplace_back("Set-Cookie", m_cookie.removing());
    return answer;
}

} // namespace wexel::receiver

#include "Handlers/Dashboard/SessionHandlers.h"

#include "Http/JsonBody.h"
#include "Log.h"

namespace wexel::receiver {

Answer SignInHandler::handle(Request &request)
{
    m_gatekeeper.refuseForeignPage(
        request.header); // or it could sign a browser in to listen to what is done there
    const std::string password = textIn(*readJsonBody(request), "password");
    if (std::optional<Answer> refusal = m_signIn.refusal(request.peer, password))
        return std::move(*refusal);
    const std::string token = m_sessions.start(currentMilliseconds());
    logEvent("signed_in", {{"peer", request.peer}});
    Answer answer = jsonAnswer("{\"csrf\":" + jsonString(SessionStore::describe(token).csrf) + "}");
    answer.headers.emplace_back("Set-Cookie", m_cookie.keeping(token));
    return answer;
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

#include "Handlers/Dashboard/PasswordHandler.h"

#include "Access/Password.h"
#include "Handlers/Dashboard/SessionHandlers.h"
#include "Http/JsonBody.h"
#include "Log.h"

namespace wexel::receiver {

Answer PasswordHandler::handle(Request &request)
{
    const auto body = readJsonBody(request);
    const std::string next = textIn(*body, "new");
    if (next.size() < minimumPasswordLength)
        throw HttpError(Status::HTTP_BAD_REQUEST,
                        "A password has at least " + std::to_string(minimumPasswordLength) + " characters");
    if (std::optional<Answer> refusal = m_signIn.check(request.peer, textIn(*body, "current")).refusal) {
        // 401 would say that the session is over.
        if (refusal->status == Status::HTTP_UNAUTHORIZED)
            refusal->status = Status::HTTP_FORBIDDEN;
        return std::move(*refusal);
    }
    m_administrator.setPassword(next);
    logEvent("password_changed", {{"peer", request.peer}});
    return sessionAnswer(m_sessions.start(currentMilliseconds()), m_cookie);
}

} // namespace wexel::receiver

#include "Handlers/TokenHandler.h"

#include "Log.h"

namespace wexel::receiver {

namespace {

constexpr std::uint64_t maximumTokenRequestSize = 16 * 1024;

Answer oauthError(Status status, const std::string &code, const std::string &text)
{
    Answer answer = jsonAnswer(
        "{\"error\":" + jsonString(code) + ",\"error_description\":" + jsonString(text) + "}", status);
    answer.fault = text;
    return answer;
}

} // namespace

Answer TokenHandler::handle(Request &request)
{
    const auto fields = formFields(request.body.readAll(maximumTokenRequestSize, "The token request"));
    if (!fields.contains("grant_type") || !fields.contains("client_id") || !fields.contains("client_secret"))
        return oauthError(Status::HTTP_BAD_REQUEST, "invalid_request",
                          "Expected grant_type=client_credentials&client_id=...&client_secret=...");
    if (fields.at("grant_type") != "client_credentials")
        return oauthError(Status::HTTP_BAD_REQUEST, "unsupported_grant_type",
                          "The grant_type must be client_credentials");
    const std::string &client = fields.at("client_id");
    const auto token
        = m_clients.issueToken(client, fields.at("client_secret"), m_lifetime, currentMilliseconds());
    if (!token) {
        logEvent("client_refused", {{"peer", request.peer}, {"client", client}});
        return oauthError(Status::HTTP_UNAUTHORIZED, "invalid_client",
                          "The client id or the client secret is wrong");
    }
    return jsonAnswer("{\"access_token\":" + jsonString(*token)
                      + ",\"token_type\":\"bearer\",\"expires_in\":" + std::to_string(m_lifetime) + "}");
}

} // namespace wexel::receiver

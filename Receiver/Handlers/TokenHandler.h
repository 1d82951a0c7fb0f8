#pragma once

#include "Clients.h"
#include "Http/Handler.h"
#include "Storage/TokenStore.h"

namespace wexel::receiver {

/// POST auth/oauth2/token: the client-credentials grant. A refusal has neither "access_token" nor "expires_in", the only
/// things that the library looks at.
class TokenHandler : public Handler
{
public:
    TokenHandler(const Clients &clients, TokenStore &tokens, int lifetime)
        : m_clients(clients)
        , m_tokens(tokens)
        , m_lifetime(lifetime)
    {
    }

    Answer handle(Request &request) override;

private:
    const Clients &m_clients;
    TokenStore &m_tokens;
    int m_lifetime; ///< seconds
};

} // namespace wexel::receiver

#pragma once

#include "Access/ClientDirectory.h"
#include "Http/Handler.h"

namespace wexel::receiver {

/// POST auth/oauth2/token: the client-credentials grant. A refusal has neither "access_token" nor "expires_in", the only
/// things that the library looks at.
class TokenHandler : public Handler
{
public:
    TokenHandler(ClientDirectory &clients, int lifetime) : m_clients(clients), m_lifetime(lifetime) { }

    Answer handle(Request &request) override;

private:
    ClientDirectory &m_clients;
    int m_lifetime; ///< seconds
};

} // namespace wexel::receiver

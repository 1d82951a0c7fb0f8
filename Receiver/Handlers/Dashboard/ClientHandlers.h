#pragma once

#include "Access/ClientStore.h"
#include "Clients.h"
#include "Http/Handler.h"

namespace wexel::receiver {

/// GET dashboard/api/clients: all clients, without secrets; those of the command line can't be changed here.
class ClientsHandler : public Handler
{
public:
    ClientsHandler(ClientStore &store, const Clients &commandLine)
        : m_store(store)
        , m_commandLine(commandLine)
    {
    }

    Answer handle(Request &request) override;

private:
    ClientStore &m_store;
    const Clients &m_commandLine;
};

/// POST dashboard/api/clients, {"id"?, "bundle_ids"?}: adds one and answers its secret; 409 if the id is taken.
class AddClientHandler : public Handler
{
public:
    AddClientHandler(ClientStore &store, const Clients &commandLine)
        : m_store(store)
        , m_commandLine(commandLine)
    {
    }

    Answer handle(Request &request) override;

private:
    ClientStore &m_store;
    const Clients &m_commandLine;
};

/// POST dashboard/api/clients/{id}/rotate: answers a new secret and ends the client's tokens.
class RotateClientHandler : public Handler
{
public:
    explicit RotateClientHandler(ClientStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ClientStore &m_store;
};

/// PUT dashboard/api/clients/{id}, {"bundle_ids"}: replaces the bundle ids that it may report for; none means any.
class BindClientHandler : public Handler
{
public:
    explicit BindClientHandler(ClientStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ClientStore &m_store;
};

/// DELETE dashboard/api/clients/{id}: ends the client, with its tokens, for good.
class RevokeClientHandler : public Handler
{
public:
    explicit RevokeClientHandler(ClientStore &store) : m_store(store) { }

    Answer handle(Request &request) override;

private:
    ClientStore &m_store;
};

} // namespace wexel::receiver

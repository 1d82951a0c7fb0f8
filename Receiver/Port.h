#pragma once

#include "Options.h"

#include <Poco/Net/ServerSocket.h>

#include <string>

namespace wexel::receiver {

/// The address that a server is to answer at, and its TLS. From construction on it is taken, so that nothing else has been
/// touched if it can't be; connections are refused until listen().
class Port
{
public:
    /// Throws std::runtime_error with a text for the user.
    explicit Port(const Options &options);

    /// For example http://127.0.0.1:8787/.
    const std::string &url() const { return m_url; }

    /// Takes connections from now on. Throws std::runtime_error with a text for the user.
    const Poco::Net::ServerSocket &listen();
    void close() { m_socket.close(); }

private:
    Poco::Net::ServerSocket m_socket;
    std::string m_url;
};

} // namespace wexel::receiver

#pragma once

#include "Options.h"
#include "Port.h"
#include "Storage/DataFolder.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace wexel::receiver {

/// Serves the API until it is stopped. From its construction on it answers on threads of its own.
class Server
{
public:
    /// The options and the data must outlive it. Throws std::runtime_error with a text for the user.
    Server(const Options &options, DataFolder &data, Port port);
    ~Server();
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    /// The address it listens on, for example http://127.0.0.1:8787/.
    std::string url() const;

    /// What it answers, each as in "GET /api/1.0/files/{}".
    std::vector<std::string> routes() const;

    /// Takes no further connection, lets the requests in flight end for as long as \a grace, and returns when all are gone.
    void stop(std::chrono::seconds grace = std::chrono::seconds(10));

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace wexel::receiver

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wexel::receiver {

/// The clients (host applications) of the command line. Constant after start, so any thread may read it.
class Clients
{
public:
    /// \a text is ID:SECRET, split at the first colon. Throws UsageError if either side is empty or the id is taken.
    void add(const std::string &text);

    /// Reads one ID:SECRET a line; empty lines and lines that begin with # are skipped. Throws UsageError.
    void addFromFile(const std::string &path);

    std::vector<std::string> ids() const;
    bool contains(std::string_view id) const;

    /// Takes the same time for a wrong secret and for an unknown id.
    bool authenticate(std::string_view id, std::string_view secret) const;

private:
    struct Client {
        std::string id;
        std::string idDigest;
        std::string secretDigest;
    };
    std::vector<Client> m_clients;
};

} // namespace wexel::receiver

#include "Clients.h"

#include "Options.h"
#include "Secrets.h"

#include <algorithm>
#include <fstream>

namespace wexel::receiver {

void Clients::add(const std::string &text)
{
    const std::size_t colon = text.find(':');
    if (colon == 0 || colon == text.npos || colon + 1 == text.size())
        throw UsageError("A client must be given as ID:SECRET, both not empty");
    const std::string id = text.substr(0, colon);
    if (contains(id))
        throw UsageError("The client id \"" + id + "\" is given twice");
    m_clients.push_back({id, sha256(id), sha256(text.substr(colon + 1))});
}

void Clients::addFromFile(const std::string &path)
{
    std::ifstream file(path);
    if (!file)
        throw UsageError("--clients: the file " + path + " can't be read");
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.empty() || line.front() == '#')
            continue;
        try {
            add(line);
        } catch (const UsageError &error) {
            throw UsageError("--clients: " + path + " line " + std::to_string(number) + ": " + error.what());
        }
    }
}

std::vector<std::string> Clients::ids() const
{
    std::vector<std::string> ids;
    for (const Client &client : m_clients)
        ids.push_back(client.id);
    return ids;
}

bool Clients::contains(std::string_view id) const
{
    return std::any_of(m_clients.begin(), m_clients.end(),
                       [id](const Client &client) { return client.id == id; });
}

bool Clients::authenticate(std::string_view id, std::string_view secret) const
{
    const std::string idDigest = sha256(id);
    const std::string secretDigest = sha256(secret);
    // Digests have one length, and every client is compared in full, whichever of them matches.
    unsigned matches = 0;
    for (const Client &client : m_clients) {
        const unsigned sameId = equalInConstantTime(client.idDigest, idDigest);
        const unsigned sameSecret = equalInConstantTime(client.secretDigest, secretDigest);
        matches |= sameId & sameSecret;
    }
    return matches != 0;
}

} // namespace wexel::receiver

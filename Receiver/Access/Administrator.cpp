#include "Access/Administrator.h"

#include "Access/Password.h"

#include <vector>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

bool Administrator::hasPassword()
{
    return !hash().empty();
}

bool Administrator::setFirstPassword(const std::string &password)
{
    const std::string hash = passwordHash(password);
    m_database.write([&](Session &session) {
        session << "INSERT INTO administrator (id, password) VALUES (1, $1) ON CONFLICT DO NOTHING",
            bind(hash), now;
    });
    return this->hash() == hash;
}

void Administrator::setPassword(const std::string &password)
{
    const std::string hash = passwordHash(password); // slow, so outside of the transaction
    m_database.write([&](Session &session) {
        session << "INSERT INTO administrator (id, password) VALUES (1, $1) "
                   "ON CONFLICT (id) DO UPDATE SET password = excluded.password",
            bind(hash), now;
        session << "DELETE FROM sessions", now;
    });
    // Again: whoever signed in meanwhile looks at the password after that, and it or its session is here by now.
    m_database.write([](Session &session) { session << "DELETE FROM sessions", now; });
}

std::string Administrator::hash()
{
    std::vector<std::string> hashes;
    m_database.read(
        [&](Session &session) { session << "SELECT password FROM administrator", into(hashes), now; });
    return hashes.empty() ? std::string() : hashes.front();
}

} // namespace wexel::receiver

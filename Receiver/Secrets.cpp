#include "Secrets.h"

#include <Poco/Crypto/DigestEngine.h>

#include <stdexcept>
#include <sys/random.h>
#include <vector>

namespace wexel::receiver {

std::string randomId()
{
    std::vector<unsigned char> bytes(16);
    // Requests of up to 256 bytes are answered whole.
    if (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("The operating system gives no random numbers");
    return Poco::DigestEngine::digestToHex(bytes);
}

std::string randomSecret()
{
    return randomId() + randomId();
}

std::string sha256(std::string_view text)
{
    Poco::Crypto::DigestEngine engine("SHA256");
    engine.update(text.data(), text.size());
    return Poco::DigestEngine::digestToHex(engine.digest());
}

bool equalInConstantTime(std::string_view left, std::string_view right)
{
    if (left.size() != right.size())
        return false;
    unsigned difference = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        difference |= static_cast<unsigned char>(left[i]) ^ static_cast<unsigned char>(right[i]);
    return difference == 0;
}

} // namespace wexel::receiver

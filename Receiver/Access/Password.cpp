#include "Access/Password.h"

#include <array>
#include <sodium.h>
#include <stdexcept>

namespace wexel::receiver {

namespace {

void prepareLibrary()
{
    static const bool ready = sodium_init() >= 0;
    if (!ready)
        throw std::runtime_error("The cryptography library can't be used");
}

} // namespace

std::string passwordHash(std::string_view password)
{
    prepareLibrary();
    std::array<char, crypto_pwhash_STRBYTES> hash;
    if (crypto_pwhash_str(hash.data(), password.data(), password.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE)
        != 0)
        throw std::runtime_error("There is not enough memory to hash a password");
    return hash.data();
}

bool isPassword(const std::string &hash, std::string_view password)
{
    prepareLibrary();
    return crypto_pwhash_str_verify(hash.c_str(), password.data(), password.size()) == 0;
}

std::string randomPassword()
{
    prepareLibrary();
    constexpr std::string_view alphabet = "abcdefghijkmnpqrstuvwxyzABCDEFGHJKLMNPQRSTUVWXYZ23456789";
    std::string password(20, ' ');
    for (char &c : password)
        c = alphabet[randombytes_uniform(static_cast<std::uint32_t>(alphabet.size()))];
    return password;
}

} // namespace wexel::receiver

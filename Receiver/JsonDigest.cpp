#include "JsonDigest.h"

#include <Poco/DigestEngine.h>

namespace wexel::receiver {

JsonDigest::Hash::Hash()
{
    crypto_generichash_init(&m_state, nullptr, 0, sizeof(Bytes));
}

void JsonDigest::Hash::add(std::string_view bytes)
{
    crypto_generichash_update(&m_state, reinterpret_cast<const unsigned char *>(bytes.data()), bytes.size());
}

JsonDigest::Bytes JsonDigest::Hash::take()
{
    Bytes bytes;
    crypto_generichash_final(&m_state, reinterpret_cast<unsigned char *>(bytes.data()), sizeof bytes);
    return bytes;
}

void JsonDigest::close()
{
    Level &level = m_levels.back();
    const char bracket = level.isObject ? '{' : '[';
    const Bytes bytes = level.isObject ? level.members : level.entries.take();
    m_levels.pop_back();
    value(bracket, {reinterpret_cast<const char *>(bytes.data()), sizeof bytes});
}

void JsonDigest::value(char kind, std::string_view text)
{
    Level &level = m_levels.back();
    // With the lengths, no two contents have one sequence of bytes.
    const std::string head = kind + std::to_string(text.size()) + ':';
    if (!level.isObject) {
        level.entries.add(head);
        level.entries.add(text);
        return;
    }
    Hash member;
    member.add(std::to_string(level.key.size()) + ':' + level.key + head);
    member.add(text);
    const Bytes digest = member.take();
    for (std::size_t i = 0; i < digest.size(); ++i)
        level.members[i] += digest[i];
}

std::string JsonDigest::take()
{
    const Bytes digest = m_levels.front().entries.take();
    const auto *bytes = reinterpret_cast<const unsigned char *>(digest.data());
    return Poco::DigestEngine::digestToHex({bytes, bytes + sizeof digest});
}

} // namespace wexel::receiver

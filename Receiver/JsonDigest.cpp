#include "JsonDigest.h"

#include <cstring>

namespace wexel::receiver {

void JsonDigest::close()
{
    const Level level = std::move(m_levels.back());
    m_levels.pop_back();
    value(level.isObject ? '{' : '[', {reinterpret_cast<const char *>(level.sum.data()), sizeof level.sum});
}

void JsonDigest::value(char kind, std::string_view text)
{
    Level &level = m_levels.back();
    const std::string name = level.isObject ? level.key : std::to_string(level.count++);
    // With its length, no two members have one sequence of bytes.
    m_engine.update(std::to_string(name.size()) + ':' + name + kind);
    m_engine.update(text.data(), text.size());
    const Poco::DigestEngine::Digest &digest = m_engine.digest();
    Sum words;
    static_assert(sizeof words == 256 / 8);
    std::memcpy(words.data(), digest.data(), sizeof words);
    for (std::size_t i = 0; i < words.size(); ++i)
        level.sum[i] += words[i];
}

std::string JsonDigest::hex() const
{
    const Sum &sum = m_levels.front().sum;
    const auto *bytes = reinterpret_cast<const unsigned char *>(sum.data());
    return Poco::DigestEngine::digestToHex({bytes, bytes + sizeof sum});
}

} // namespace wexel::receiver

#pragma once

#include <sodium/crypto_generichash.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wexel::receiver {

/// The digest (BLAKE2b, 256 bits) of a JSON text's content, whatever the layout and the order of an object's members. It
/// takes no more memory for a long text than for a short one.
class JsonDigest
{
public:
    void openObject() { m_levels.emplace_back().isObject = true; }
    void openArray() { m_levels.emplace_back(); }
    /// The object or array that was opened last.
    void close();
    /// Of the next value.
    void key(const std::string &key) { m_levels.back().key = key; }
    /// \a kind tells values of different types with one text apart; brackets are taken.
    void value(char kind, std::string_view text);

    /// In hexadecimal digits; to be called once, at the end.
    std::string take();

private:
    using Bytes = std::array<std::uint64_t, 4>;

    class Hash
    {
    public:
        Hash();
        void add(std::string_view bytes);
        Bytes take();

    private:
        crypto_generichash_state m_state;
    };

    struct Level {
        bool isObject = false;
        std::string key; ///< of the next member
        Bytes members = {}; ///< their digests added up, which does not tell in which order they came
        Hash entries; ///< of an array
    };

    std::vector<Level> m_levels{1};
};

} // namespace wexel::receiver

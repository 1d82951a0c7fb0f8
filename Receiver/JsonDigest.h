#pragma once

#include <Poco/Crypto/DigestEngine.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wexel::receiver {

/// The digest of a JSON text's content, whatever the layout and the order of an object's members. It takes no more memory
/// for a long text than for a short one.
class JsonDigest
{
public:
    void openObject() { m_levels.push_back({true}); }
    void openArray() { m_levels.push_back({false}); }
    /// Of the object or array that was opened last.
    void close();
    /// Of the next value.
    void key(const std::string &key) { m_levels.back().key = key; }
    /// \a kind tells values of different types with one text apart; brackets are taken.
    void value(char kind, std::string_view text);

    /// To be called at the end.
    std::string hex() const;

private:
    /// The digests of an object's members, added up, do not tell in which order they came.
    using Sum = std::array<std::uint64_t, 4>;

    struct Level {
        bool isObject = false;
        std::string key = {}; ///< of the next member
        std::uint64_t count = 0; ///< of an array's entries, which are told apart by their number
        Sum sum = {};
    };

    std::vector<Level> m_levels{1};
    Poco::Crypto::DigestEngine m_engine{"SHA256"};
};

} // namespace wexel::receiver

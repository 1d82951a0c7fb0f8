#pragma once

#include <stdexcept>

namespace wexel::receiver {

/// Something could not be stored or read back. What was stored before is untouched.
class StorageError : public std::runtime_error
{
public:
    enum class Kind { Full, Failed };

    StorageError(Kind kind, const std::string &text) : std::runtime_error(text), m_kind(kind) { }

    Kind kind() const { return m_kind; }

private:
    Kind m_kind;
};

} // namespace wexel::receiver

#pragma once

#include <set>
#include <string>

namespace wexel::receiver {

/// Names for what testers attached that are safe to unpack anywhere: no folders, nothing that a file system reads in a way
/// of its own, nothing that hides the ending, no two that differ by case alone.
class ArchiveNames
{
public:
    /// \a name, changed as far as needed.
    std::string take(const std::string &name);

private:
    std::set<std::string> m_taken; ///< in lower case
};

} // namespace wexel::receiver

#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>

namespace wexel::receiver {

/// The query of an address as browsers send a form: a plus sign is a blank. Whatever is wrong with it becomes an HttpError
/// 400. An empty value is as good as none.
class Query
{
public:
    /// Refuses names that are not among \a known, names given twice and values that are not UTF-8 text.
    Query(const std::string &uri, std::initializer_list<std::string> known);

    /// Empty if it is not given. Refuses texts of more than \a longest bytes.
    std::string text(const std::string &name, std::size_t longest) const;

    /// Refuses what is not a decimal number from \a least to \a most.
    std::optional<std::int64_t> number(const std::string &name, std::int64_t least, std::int64_t most) const;

private:
    std::map<std::string, std::string> m_fields;
};

} // namespace wexel::receiver

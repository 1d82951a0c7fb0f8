#pragma once

#include <variant>
#include <vector>

#include <QString>

namespace wexel {

/// Where in a nested value a reader or writer stands, kept for its error messages. Cheap to move: the text is
/// made only when it is asked for.
class KeyPath
{
public:
    void enter(const QString &key) { m_steps.emplace_back(key); }
    void enter(qsizetype index) { m_steps.emplace_back(index); }
    void leave() { m_steps.pop_back(); }

    /// Number of containers around the current place.
    [[nodiscard]] qsizetype depth() const { return static_cast<qsizetype>(m_steps.size()); }
    /// For example "WXL_CpuHistory[3].rValueKey"; "the root" at the root. Only the last steps of a long path.
    [[nodiscard]] QString text() const;

private:
    std::vector<std::variant<QString, qsizetype>> m_steps;
};

/// The first characters of a text that may be hostile, with what cannot be printed replaced by a question
/// mark.
[[nodiscard]] QString excerpt(const QString &text);

} // namespace wexel

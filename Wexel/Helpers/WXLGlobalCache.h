#pragma once

namespace wexel {

/// Remembers the level of the host's top window at start; the library's windows stand at so much above it. Main
/// thread only.
class WXLGlobalCache
{
public:
    static WXLGlobalCache &shared();

    [[nodiscard]] double topWindowLevel() const { return m_topWindowLevel; }
    void setTopWindowLevel(double level) { m_topWindowLevel = level; }

private:
    double m_topWindowLevel = 0;
};

} // namespace wexel

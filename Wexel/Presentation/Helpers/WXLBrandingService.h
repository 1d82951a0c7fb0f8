#pragma once

#include <memory>

#include "Presentation/Helpers/WXLBranding.h"

namespace wexel {

/// Holds the branding of the current flow. Main thread only.
class WXLBrandingService
{
public:
    /// Every flow begins with our own branding, made anew.
    void start() { m_branding = std::make_shared<WXLBranding>(); }

    /// Null until started.
    [[nodiscard]] std::shared_ptr<WXLBranding> branding() const { return m_branding; }

private:
    std::shared_ptr<WXLBranding> m_branding;
};

} // namespace wexel

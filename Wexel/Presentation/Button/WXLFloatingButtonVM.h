#pragma once

#include <functional>

namespace wexel {

/// What stands behind the floating button. Main thread only.
class WXLFloatingButtonVM
{
public:
    std::function<void()> wexelFloatingButtonInvocationCallback;

    void didPressWexelButton() const
    {
        if (wexelFloatingButtonInvocationCallback)
            wexelFloatingButtonInvocationCallback();
    }
};

} // namespace wexel

#pragma once

#include <memory>
#include <vector>

namespace wexel {

class Scheduler;
class WXLMessageBannerVC;

/// Tells the tester that a report was submitted. It confirms that the uploader has it, not that the backend has. Main
/// thread only.
class WXLMessageBannerManager
{
public:
    /// \param scheduler outlives the manager
    explicit WXLMessageBannerManager(Scheduler &scheduler);
    ~WXLMessageBannerManager();
    WXLMessageBannerManager(const WXLMessageBannerManager &) = delete;
    WXLMessageBannerManager &operator=(const WXLMessageBannerManager &) = delete;

    /// A banner of its own for each call; one that shows already runs to its end.
    void showBanner();
    /// Takes all banners away, for good.
    void closeWindows();

private:
    Scheduler &m_scheduler;
    std::vector<std::unique_ptr<WXLMessageBannerVC>> m_banners;
};

} // namespace wexel

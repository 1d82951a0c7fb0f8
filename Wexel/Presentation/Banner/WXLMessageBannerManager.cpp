#include "Presentation/Banner/WXLMessageBannerManager.h"

#include <algorithm>

#include "Presentation/Banner/WXLMessageBannerVC.h"

namespace wexel {

WXLMessageBannerManager::WXLMessageBannerManager(Scheduler &scheduler) : m_scheduler(scheduler) { }

WXLMessageBannerManager::~WXLMessageBannerManager() = default;

void WXLMessageBannerManager::showBanner()
{
    auto banner = std::make_unique<WXLMessageBannerVC>(m_scheduler, [this](WXLMessageBannerVC *gone) {
        const auto found = std::find_if(m_banners.begin(), m_banners.end(),
                                        [gone](const auto &kept) { return kept.get() == gone; });
        found->release()->deleteLater(); // it is what is calling
        m_banners.erase(found);
    });
    m_banners.push_back(std::move(banner));
    m_banners.back()->show();
}

void WXLMessageBannerManager::closeWindows()
{
    m_banners.clear();
}

} // namespace wexel

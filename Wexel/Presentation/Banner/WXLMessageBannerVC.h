#pragma once

#include <functional>
#include <memory>

#include <QVariantAnimation>

#include "Platform/Scheduler.h"
#include "Presentation/Helpers/WXLClickableWindow.h"

namespace wexel {

/// One banner, in a window of its own: waits a second, slides in from the lower edge of the stage, stays for two, slides
/// out. Presses beside the card reach the application. Main thread only.
class WXLMessageBannerVC final : public WXLClickableWindow
{
public:
    /// \param scheduler outlives the banner
    /// \param onGone called last of all, with this
    WXLMessageBannerVC(Scheduler &scheduler, std::function<void(WXLMessageBannerVC *)> onGone);
    ~WXLMessageBannerVC() override;

    void show();
    [[nodiscard]] QString accessibleName() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void stageChanged() override { layOut(); }

private:
    void slideIn();
    void dismissBanner();
    void slideOut();
    void layOut();
    void after(std::chrono::milliseconds delay, void (WXLMessageBannerVC::*step)());
    void slide(double from, double to, const QEasingCurve &curve, void (WXLMessageBannerVC::*next)());
    void end();

    Scheduler &m_scheduler;
    std::function<void(WXLMessageBannerVC *)> m_onGone;
    QVariantAnimation m_animation;
    std::shared_ptr<Timer> m_timer;
    double m_shown = 0; ///< part of the card that is above the edge, 0 to 1
};

} // namespace wexel

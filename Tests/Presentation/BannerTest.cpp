#include "Presentation/Banner/WXLMessageBannerManager.h"

#include <gtest/gtest.h>

#include <QRasterWindow>

#include "Presentation/Banner/WXLBannerView.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/QuickHost.h"
#include "Support/FakeScheduler.h"

using namespace wexel;
using namespace std::chrono_literals;

namespace {

QList<QWindow *> banners()
{
    QList<QWindow *> windows = QGuiApplication::topLevelWindows();
    windows.removeIf([](const QWindow *window) {
        return !isMarked(window, clickableWindowProperty) || !window->isVisible();
    });
    return windows;
}

bool waitUntilTheyReach(const QRect &frame)
{
    return waitUntil([&] { return banners().size() == 1 && banners().first()->geometry() == frame; });
}

TEST(Banner, RisesAfterASecondAndGoesAfterTwoMore)
{
    QRasterWindow host;
    host.setGeometry(40, 40, 390, 500);
    host.show();
    ASSERT_TRUE(waitUntil([&host] { return host.isExposed(); }));
    FakeScheduler scheduler;
    WXLMessageBannerManager manager(scheduler);
    manager.showBanner();
    EXPECT_EQ(scheduler.armed(), std::vector<long>{1});
    scheduler.advance(999ms);
    EXPECT_TRUE(banners().isEmpty());
    scheduler.advance(1ms);
    constexpr int height = 51;
    const int reach = static_cast<int>(WXLBannerView::shadowReach);
    const QRect shown(40, 540 - height - reach, 390, height + reach);
    EXPECT_TRUE(waitUntilTheyReach(shown));
    EXPECT_EQ(banners().first()->transientParent(), &host);
    EXPECT_TRUE(waitUntil([&] {
        return banners().first()->mask().boundingRect() == QRect(0, reach, 390, height);
    })) << "takes presses there";
    host.setGeometry(60, 20, 300, 400);
    EXPECT_TRUE(waitUntilTheyReach(QRect(60, 420 - height - reach, 300, height + reach)));

    EXPECT_TRUE(waitUntil([&] { return scheduler.armed() == std::vector<long>{2}; }));
    manager.showBanner(); // of another report: the first one runs to its end
    scheduler.advance(2s); // the first is to go, the second has come
    EXPECT_TRUE(
        waitUntil([&] { return banners().size() == 1 && scheduler.armed() == std::vector<long>{2}; }));
    scheduler.advance(2s);
    EXPECT_TRUE(waitUntil([] { return banners().isEmpty(); }));
    EXPECT_TRUE(scheduler.armed().empty());
}

TEST(Banner, IsHigherWhereTheSystemCoversTheEdge)
{
    EXPECT_EQ(WXLBannerView::bannerViewHeight(0), 51);
    EXPECT_EQ(WXLBannerView::bannerViewHeight(34), 68);
    EXPECT_EQ(WXLBannerView::getMessage(), QStringLiteral("Done. Bug submitted successfully."));
}

} // namespace

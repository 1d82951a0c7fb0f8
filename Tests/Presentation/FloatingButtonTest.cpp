#include <gtest/gtest.h>

#include <QRasterWindow>
#include <QTemporaryDir>
#include <QTimer>

#include "Business/WXLAppRepository.h"
#include "Presentation/Button/WXLFloatingButtonVC.h"
#include "Presentation/Button/WXLFloatingButtonView.h"
#include "Presentation/QuickHost.h"
#include "Presentation/Screens.h"

using namespace wexel;

namespace {

/// A host of one window, on a stage of 300 by 400.
struct FloatingButtonTest : testing::Test {
    FloatingButtonTest()
    {
        viewModel->wexelFloatingButtonInvocationCallback = [this] { ++invocations; };
        host.setGeometry(100, 100, 300, 400);
        host.show();
        button = makeButton();
        EXPECT_TRUE(waitUntil([this] { return button->isVisible() && host.isExposed(); }));
    }
    [[nodiscard]] std::unique_ptr<WXLFloatingButtonVC> makeButton()
    {
        auto made = std::make_unique<WXLFloatingButtonVC>(viewModel, repository);
        made->present();
        return made;
    }
    [[nodiscard]] QPoint onScreen(const QPointF &onStage) const
    {
        return host.mapToGlobal(onStage).toPoint();
    }
    [[nodiscard]] QPoint centre() const { return onScreen(button->frame().center()); }
    void dragBy(const QPoint &way) const { drag(*button, {centre(), centre() + way}); }

    QTemporaryDir folder;
    WXLAppRepository repository{
        makeUserDefaults(folder.filePath(QStringLiteral("store")), [](auto, auto) {})};
    std::shared_ptr<WXLFloatingButtonVM> viewModel = std::make_shared<WXLFloatingButtonVM>();
    int invocations = 0;
    QRasterWindow host;
    std::unique_ptr<WXLFloatingButtonVC> button;
};

const QRectF initial(15, 400 - 100 - 15, 100, 50);

} // namespace

TEST(ButtonDragTest, liftsByTheOtherSidesLengthAndStaysWithinTheSafePartOfTheStage)
{
    expectNear(liftedFrame({20, 30, 100, 50}), {18.5, 27, 103, 51.5});
    expectNear(putDownFrame({18.5, 27, 103, 51.5}), {20.045, 30.09, 100, 50});
    const ButtonLimits limits{{390, 844}, 47, 34};
    const auto clamped = [&](double x, double y) { return clampedFrame({x, y, 100, 50}, limits).topLeft(); };
    EXPECT_EQ(clamped(0, 47), QPointF(0, 47)) << "the corners are within";
    EXPECT_EQ(clamped(290, 760), QPointF(290, 760));
    EXPECT_EQ(clamped(-0.5, 46.5), QPointF(0, 47));
    EXPECT_EQ(clamped(290.5, 760.5), QPointF(290, 760));
    EXPECT_EQ(clamped(-500, 5000), QPointF(0, 760));
    const ButtonLimits small{{80, 40}, 5, 0};
    EXPECT_EQ(clampedFrame({-10, -10, 100, 50}, small), QRectF(0, 5, 100, 50)) << "too large, moved out";
    EXPECT_EQ(clampedFrame({0, 5, 100, 50}, small), QRectF(-20, -10, 100, 50)) << "too large, within";
}

TEST_F(FloatingButtonTest, aTapInvokesOnce)
{
    expectNear(button->frame(), initial);
    const QPoint place = button->mapFromGlobal(centre());
    QTest::mouseClick(button.get(), Qt::LeftButton, {}, place);
    EXPECT_EQ(invocations, 1);
    QTest::mouseClick(button.get(), Qt::RightButton, {}, place);
    const QPoint left = onScreen({initial.left() + 2, initial.center().y()});
    pressAt(*button, left);
    releaseAt(*button, left - QPoint(5, 0)); // not far enough for a drag, and on the shadow
    EXPECT_EQ(invocations, 1);
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QTest::touchEvent(button.get(), screen.get()).press(1, place, button.get());
    QTest::touchEvent(button.get(), screen.get()).release(1, place, button.get());
    EXPECT_EQ(invocations, 2);
    expectNear(button->frame(), initial);
}

TEST_F(FloatingButtonTest, aDragLiftsItMovesItAndKeepsWhereItWasDropped)
{
    pressAt(*button, centre());
    const QPoint start = centre();
    moveTo(*button, start + QPoint(4, -5));
    expectNear(button->frame(), initial); // a tap that is not quite still
    moveTo(*button, start + QPoint(100, -200));
    expectNear(button->frame(), {13.5 + 100, 282 - 200, 103, 51.5});
    moveTo(*button, start + QPoint(120, -190));
    EXPECT_FALSE(repository.floatingButtonFrameX()) << "not dropped yet";
    releaseAt(*button, start + QPoint(120, -190));
    const QRectF dropped(15.045 + 120, 285.09 - 190, 100, 50);
    expectNear(button->frame(), dropped);
    EXPECT_FLOAT_EQ(repository.floatingButtonFrameX().value_or(0), 135.045F);
    EXPECT_FLOAT_EQ(repository.floatingButtonFrameY().value_or(0), 95.09F);
    EXPECT_EQ(invocations, 0);
    EXPECT_TRUE(button->geometry().contains(QRect(onScreen(dropped.topLeft()), QSize(100, 50))));
    expectNear(makeButton()->frame(), dropped);
    dragBy({500, 500});
    expectNear(button->frame(),
               {300 - 103 + 1.545, 400 - 51.5 + 3.09, 100, 50}); // lifted, it was in the corner
}

TEST_F(FloatingButtonTest, itFollowsTheHostsWindow)
{
    const auto isAt = [this](const QPointF &place) {
        return waitUntil([&] {
            return button->isVisible() && (button->frame().topLeft() - place).manhattanLength() < 0.01
                && button->geometry().contains(QRectF(onScreen(place), QSizeF(100, 50)).toRect());
        });
    };
    EXPECT_TRUE(isAt({15, 285}));
    host.setPosition(250, 40);
    EXPECT_TRUE(isAt({15, 285}));
    dragBy({170, 0}); // to x = 185.045
    host.resize(200, 300);
    EXPECT_TRUE(isAt({100, 250})) << "a smaller stage moves it in";
    host.resize(300, 400);
    EXPECT_TRUE(isAt({185.045, 285.09})) << "a larger one gives it its place back";
    host.showMinimized();
    EXPECT_TRUE(waitUntil([this] { return !button->isVisible(); }));
    host.showNormal();
    EXPECT_TRUE(isAt({185.045, 285.09}));
    button->close();
    EXPECT_TRUE(isAt({185.045, 285.09})) << "a host that closes all windows still has its own";
}

TEST_F(FloatingButtonTest, itLiesOverAModalDialog)
{
    EXPECT_EQ(button->transientParent(), &host);
    QRasterWindow dialog;
    dialog.setTransientParent(&host);
    dialog.setModality(Qt::WindowModal);
    dialog.setFlag(Qt::Dialog);
    dialog.show();
    EXPECT_TRUE(waitUntil([&] { return button->transientParent() == &dialog && button->isVisible(); }));
    dialog.hide();
    EXPECT_TRUE(waitUntil([&] { return button->transientParent() == &host && button->isVisible(); }));
}

TEST_F(FloatingButtonTest, aHostWithoutWindowsQuitsAndNoFocusIsTaken)
{
    EXPECT_TRUE(button->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
    QGuiApplication::setQuitOnLastWindowClosed(true);
    QTimer::singleShot(0, &host, [this] { host.close(); });
    QTimer deadline;
    deadline.callOnTimeout([] { QCoreApplication::exit(1); });
    deadline.start(10'000);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    EXPECT_FALSE(button->isVisible());
    {
        QRasterWindow other; // destroyed, not closed
        other.show();
        EXPECT_TRUE(waitUntil([this] { return button->isVisible(); }));
    }
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(button->transientParent(), nullptr);
}

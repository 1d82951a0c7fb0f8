#include "Presentation/Coordinator/WXLCoordinator.h"

#include <gtest/gtest.h>

#include <QRasterWindow>
#include <QTimer>

#include <Wexel/WXLWexelFile.h>
#include <Wexel/WXLWexelReportData.h>

#include "Business/ReportKeys.h"
#include "OfflineManager/WXLUploader.h"
#include "Presentation/Banner/WXLMessageBannerManager.h"
#include "Presentation/Button/WXLFloatingButtonVC.h"
#include "Presentation/Coordinator/NavigationController.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/PictureItem.h"
#include "Presentation/Helpers/WXLBranding.h"
#include "Presentation/Helpers/WXLLargerTappableButton.h"
#include "Presentation/QuickHost.h"
#include "Presentation/ReportCompose/WXLReportComposeViewController.h"
#include "Presentation/Screen/WXLScreenshotVC.h"
#include "Presentation/Screens.h"
#include "Support/World.h"

using namespace wexel;

namespace {

/// A red host, and flows over it whose reports are kept on disk since the backend has not authorised the host.
struct CoordinatorTest : testing::Test {
    void showHost()
    {
        host.show("Window { x: 60; y: 40; width: 390; height: 600; visible: true; color: 'red' }");
        host.window->requestActivate();
        EXPECT_TRUE(waitUntil([this] { return host.window->isActive(); }));
    }
    /// Starts a flow; its window, null when it shows none.
    QQuickWindow *start()
    {
        coordinator = std::make_unique<WXLCoordinator>(
            FlowServices{uploader, world.repository,
                         [] { return std::make_shared<WXLWexelReportData>(QVariantMap()); }},
            std::make_shared<WXLBranding>(), banners);
        coordinator->onCoordinatorFinish = [this] { ++finishes; };
        coordinator->start();
        return flowWindow();
    }
    static QQuickWindow *flowWindow()
    {
        QQuickWindow *flow = nullptr;
        for (QWindow *window : QGuiApplication::topLevelWindows()) {
            if (isMarked(window, displayWindowProperty)) {
                EXPECT_EQ(flow, nullptr) << "a second one";
                flow = qobject_cast<QQuickWindow *>(window);
            }
        }
        return flow;
    }
    static void tap(QQuickWindow *flow, const char *name)
    {
        QQuickItem *item = tappable(flow->contentItem(), QString::fromUtf8(name));
        ASSERT_TRUE(item) << name;
        click(item);
    }
    bool waitUntilGone(const QPointer<QQuickWindow> &flow, int times = 1) const
    {
        return waitUntil([&] { return finishes == times && flow.isNull(); });
    }

    /// Screens of the flow that are there; those on their way out count until they are gone.
    static int screens(const QQuickWindow *flow)
    {
        const auto *navigation = flow->contentItem()->findChild<NavigationController *>();
        return navigation->isEnabled() ? static_cast<int>(navigation->childItems().size()) : 0;
    }
    static QQuickItem *field(const QQuickWindow *flow, const char *className)
    {
        for (QQuickItem *item : flow->contentItem()->findChildren<QQuickItem *>()) {
            if (item->inherits(className))
                return item;
        }
        return nullptr;
    }
    static void type(QQuickWindow *flow, const char *text)
    {
        for (const char letter : QByteArray(text))
            QTest::keyClick(flow, letter);
    }
    static QQuickItem *deleteButton(QQuickItem *below)
    {
        if (qobject_cast<WXLLargerTappableButton *>(below) != nullptr && below->isVisible())
            return below;
        for (QQuickItem *child : below->childItems()) {
            if (QQuickItem *found = deleteButton(child))
                return found;
        }
        return nullptr;
    }
    static void removeAttachment(const QQuickWindow *flow)
    {
        const QQuickItem *button = deleteButton(flow->contentItem());
        ASSERT_TRUE(button);
        const QPointF outside = button->mapToScene({-15, 35}); // it is larger than it looks
        QTest::mouseClick(button->window(), Qt::LeftButton, {}, outside.toPoint());
    }

    World &world = World::make(QStringLiteral("http://127.0.0.1:1/"), false);
    WXLUploader &uploader = *new WXLUploader(world.fileManager, world.api, world.repository, world.scheduler,
                                             world.notifications); // for the process, as its world
    QuickHost host;
    WXLMessageBannerManager banners{world.scheduler};
    std::unique_ptr<WXLCoordinator> coordinator;
    int finishes = 0;
};

} // namespace

TEST_F(CoordinatorTest, opensOverTheStageWithAPictureOfTheHostAlone)
{
    showHost();
    WXLFloatingButtonVC button(std::make_shared<WXLFloatingButtonVM>(), world.repository);
    button.present();
    EXPECT_TRUE(waitUntil([&button] { return button.isExposed(); }));
    QQuickWindow *flow = start();
    ASSERT_TRUE(flow);
    EXPECT_TRUE(waitUntil([flow] { return flow->isExposed() && flow->isActive(); }));
    EXPECT_EQ(flow->geometry(), host.window->geometry());
    EXPECT_EQ(flow->transientParent(), host.window);
    EXPECT_EQ(flow->modality(), Qt::ApplicationModal);
    const auto *editor = flow->contentItem()->findChild<WXLScreenshotView *>();
    ASSERT_TRUE(editor);
    QImage picture = editor->screenshotImageView().image();
    EXPECT_EQ(picture.size(), host.window->size() * host.window->devicePixelRatio());
    QImage red(picture.size(), picture.format());
    red.fill(Qt::red);
    EXPECT_EQ(picture, red);
    EXPECT_EQ(finishes, 0);
    host.window->setGeometry(100, 20, 300, 500);
    EXPECT_TRUE(waitUntil([&] { return flow->geometry() == QRect(100, 20, 300, 500); }));
    host.window->showMinimized();
    EXPECT_TRUE(waitUntil([flow] { return !flow->isVisible(); }));
    host.window->showNormal();
    EXPECT_TRUE(waitUntil([flow] { return flow->isVisible(); }));
    EXPECT_EQ(finishes, 0);
}

TEST_F(CoordinatorTest, closesAfterItsAnimationAndGivesTheHostsWindowBack)
{
    showHost();
    QRasterWindow dialog;
    dialog.setTransientParent(host.window);
    dialog.show();
    dialog.requestActivate();
    EXPECT_TRUE(waitUntil([&dialog] { return dialog.isActive(); }));
    const QPointer<QQuickWindow> flow = start();
    ASSERT_TRUE(flow);
    EXPECT_TRUE(waitUntil([&flow] { return flow->isActive() && flow->isExposed(); }));
    tap(flow, "Close");
    EXPECT_TRUE(flow->isVisible()) << "it fades";
    EXPECT_EQ(finishes, 0);
    coordinator->dismiss();
    flow->close(); // by the window manager, too
    EXPECT_TRUE(flow->isVisible());
    EXPECT_TRUE(waitUntilGone(flow));
    EXPECT_TRUE(waitUntil([&dialog] { return dialog.isActive(); }));
    coordinator->dismiss();
    EXPECT_EQ(finishes, 1);
    EXPECT_TRUE(world.fileManager.savedReports().isEmpty());
}

TEST_F(CoordinatorTest, leadsFromTheMarkedImageToTheSubmittedReport)
{
    showHost();
    const QPointer<QQuickWindow> flow = start();
    ASSERT_TRUE(flow);
    EXPECT_TRUE(waitUntil([&flow] { return flow->isExposed(); }));
    tap(flow, "Next");
    tap(flow, "Next"); // impatiently
    auto *description = field(flow, "QQuickTextEdit");
    ASSERT_TRUE(description);
    EXPECT_TRUE(waitUntil([&] { return description->hasActiveFocus(); })) << "on the first visit";
    type(flow, "Too red");
    type(flow, "\t");
    type(flow, "ada@example.org");
    tap(flow, "Inspect bug");
    EXPECT_TRUE(waitUntil([&] { return screens(flow) == 3; }));
    tap(flow, "Back");
    EXPECT_TRUE(waitUntil([&] { return screens(flow) == 2; }));
    tap(flow, "Submit");
    tap(flow, "Submit");
    EXPECT_TRUE(waitUntilGone(flow));
    EXPECT_TRUE(waitUntil([this] { return !world.fileManager.savedReports().isEmpty(); }));
    const QStringList saved = world.fileManager.savedReports();
    ASSERT_EQ(saved.size(), 1);
    const auto report = world.fileManager.loadReportDataForIdentifier(saved.front());
    ASSERT_TRUE(report && report->screenshotFile && report->gatheredDataDict);
    EXPECT_EQ(report->gatheredDataDict->value(kWXLUserInput), QStringLiteral("Too red"));
    EXPECT_EQ(report->gatheredDataDict->value(kWXLUserEmail), QStringLiteral("ada@example.org"));
    EXPECT_EQ(world.repository.emailAddress(), QStringLiteral("ada@example.org"));
    EXPECT_EQ(report->screenshotFile->name(), QStringLiteral("screenshot.jpg"));
    const QImage image = QImage::fromData(report->screenshotFile->data(), "JPG");
    EXPECT_EQ(image.size(), host.window->size() * host.window->devicePixelRatio());
    EXPECT_GT(image.pixelColor(200, 300).red(), 240);
    EXPECT_LT(image.pixelColor(200, 300).green(), 15);
}

TEST_F(CoordinatorTest, keepsWhatWasTypedAndWhatWasRemovedOnTheWayBack)
{
    showHost();
    const QPointer<QQuickWindow> flow = start();
    ASSERT_TRUE(flow);
    EXPECT_TRUE(waitUntil([&flow] { return flow->isExposed(); }));
    const auto forth = [&] {
        tap(flow, "Next");
        EXPECT_TRUE(
            waitUntil([&] { return screens(flow) == 2 && field(flow, "QQuickTextEdit") != nullptr; }));
    };
    const auto back = [&] {
        tap(flow, "Back");
        EXPECT_TRUE(waitUntil([&] { return screens(flow) == 1; }));
    };
    const auto cards = [&] { return deleteButton(flow->contentItem()) != nullptr ? 1 : 0; };
    forth();
    EXPECT_TRUE(waitUntil([&] { return field(flow, "QQuickTextEdit")->hasActiveFocus(); }));
    type(flow, "Too red");
    EXPECT_TRUE(waitUntil([&] { return cards() == 1; }));
    removeAttachment(flow);
    EXPECT_TRUE(waitUntil([&] { return cards() == 0; }));
    back();
    forth();
    EXPECT_EQ(field(flow, "QQuickTextEdit")->property("text"), QStringLiteral("Too red"));
    EXPECT_FALSE(field(flow, "QQuickTextEdit")->hasActiveFocus()) << "only on the first visit";
    EXPECT_EQ(cards(), 0) << "removed, and not changed since";
    back();
    const auto *canvas = flow->contentItem()->findChild<WXLScreenshotView *>();
    const QPoint middle = canvas->mapToScene(canvas->imageFrame().center()).toPoint();
    drag(*flow,
         {flow->mapToGlobal(middle), flow->mapToGlobal(middle + QPoint(60, 20)),
          flow->mapToGlobal(middle + QPoint(90, 90))});
    forth();
    EXPECT_TRUE(waitUntil([&] { return cards() == 1; })) << "another image";
    back();
    tap(flow, "Close");
    EXPECT_TRUE(waitUntilGone(flow));
}

TEST_F(CoordinatorTest, offersOnlyTheWayOutOfAnArchivedApplication)
{
    showHost();
    world.repository.setApplicationActive(false);
    const QPointer<QQuickWindow> flow = start();
    ASSERT_TRUE(flow);
    EXPECT_TRUE(waitUntil([&flow] { return flow->isExposed(); }));
    tap(flow, "Next");
    EXPECT_EQ(flow->contentItem()->findChild<WXLReportComposeViewController *>(), nullptr);
    QTest::keyClick(flow, Qt::Key_Tab);
    EXPECT_EQ(flow->activeFocusItem()->property("name"), QStringLiteral("Dismiss"));
    tap(flow, "Dismiss");
    EXPECT_TRUE(waitUntilGone(flow));
    EXPECT_TRUE(world.fileManager.savedReports().isEmpty());
}

TEST_F(CoordinatorTest, isUsableWithoutAPointer)
{
    showHost();
    const QPointer<QQuickWindow> flow = start();
    ASSERT_TRUE(flow);
    EXPECT_TRUE(waitUntil([&flow] { return flow->isActive() && flow->isExposed(); }));
    const auto press = [&](const char *name, Qt::Key key) {
        const QString wanted = QString::fromUtf8(name);
        for (int tabs = 0; tabs < 20; ++tabs) {
            const QQuickItem *item = flow->activeFocusItem();
            if (item != nullptr && item->property("name") == wanted)
                return QTest::keyClick(flow, key);
            QTest::keyClick(flow, Qt::Key_Tab);
        }
        ADD_FAILURE() << name << " is out of reach";
    };
    press("BLUR", Qt::Key_Space);
    press("PALETTE", Qt::Key_Return);
    EXPECT_TRUE(
        waitUntil([&] { return tappable(flow->contentItem(), QStringLiteral("Colour 3"))->isEnabled(); }));
    press("Colour 3", Qt::Key_Return);
    EXPECT_EQ(world.repository.lastUsedColor(), 2);
    press("Next", Qt::Key_Enter);
    EXPECT_TRUE(waitUntil([&] { return screens(flow) == 2 && flow->contentItem()->isEnabled(); }));
    EXPECT_TRUE(waitUntil([&] { return field(flow, "QQuickTextEdit")->hasActiveFocus(); }));
    press("Inspect bug", Qt::Key_Space);
    EXPECT_TRUE(waitUntil([&] { return screens(flow) == 3; }));
    QTest::keyClick(flow, Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return screens(flow) == 2; }));
    press("Submit", Qt::Key_Return);
    EXPECT_TRUE(waitUntilGone(flow));
    EXPECT_TRUE(waitUntil([this] { return !world.fileManager.savedReports().isEmpty(); }));
}

TEST_F(CoordinatorTest, finishesWithTheHostsWindowAndAtOnceWithoutOne)
{
    EXPECT_EQ(start(), nullptr);
    EXPECT_EQ(finishes, 1);
    showHost();
    const QPointer<QQuickWindow> flow = start();
    ASSERT_TRUE(flow);
    EXPECT_TRUE(waitUntil([&flow] { return flow->isExposed(); }));
    delete host.window;
    EXPECT_TRUE(waitUntilGone(flow, 2));
    EXPECT_EQ(QGuiApplication::topLevelWindows().size(), 0);
}

TEST_F(CoordinatorTest, letsTheHostQuit)
{
    showHost();
    const QPointer<QQuickWindow> flow = start();
    ASSERT_TRUE(flow);
    EXPECT_TRUE(waitUntil([&flow] { return flow->isExposed(); }));
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    constexpr int givenUp = 1;
    QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(givenUp); });
    EXPECT_EQ(QGuiApplication::exec(), 0);
    EXPECT_TRUE(waitUntilGone(flow));
}

TEST_F(CoordinatorTest, tenFlowsLeaveNothingBehind)
{
    showHost();
    qsizetype windows = 0;
    qsizetype objects = 0;
    for (int times = 1; times <= 10; ++times) {
        const QPointer<QQuickWindow> flow = start();
        ASSERT_TRUE(flow);
        EXPECT_TRUE(waitUntil([&flow] { return flow->isExposed(); }));
        const QPointer<QObject> editor = flow->contentItem()->findChild<WXLScreenshotView *>();
        EXPECT_TRUE(editor);
        tap(flow, "Close");
        EXPECT_TRUE(waitUntilGone(flow, times));
        EXPECT_TRUE(editor.isNull());
        if (times == 1) { // what Qt keeps for the life of the process is there
            windows = QGuiApplication::allWindows().size();
            objects = qApp->findChildren<QObject *>().size();
        }
    }
    EXPECT_EQ(QGuiApplication::allWindows().size(), windows);
    EXPECT_EQ(qApp->findChildren<QObject *>().size(), objects);
}

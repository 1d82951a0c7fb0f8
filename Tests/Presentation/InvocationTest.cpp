#include "Presentation/Invocation/WexelInvocationManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QFileSystemWatcher>
#include <QRasterWindow>

#include <Wexel/WXLWexel.h>

#include "Business/HistoryKeys.h"
#include "Business/TouchRecord.h"
#include "Business/WXLUserEventReporter.h"
#include "Platform/NotificationCenter.h"
#include "Platform/SerialQueue.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Invocation/ScreenshotListener.h"
#include "Presentation/QuickHost.h"
#include "Presentation/Screens.h"
#include "Support/Histories.h"

using namespace wexel;
using testing::IsEmpty;

namespace {

/// A manager among its collaborators. Never destroyed: its triggers live as long as the application object.
struct Invocation {
    QTemporaryDir folder{QDir::homePath() + QStringLiteral("/invocation-XXXXXX")};
    WXLAppRepository repository{
        makeUserDefaults(folder.filePath(QStringLiteral("store")), [](auto, auto) {})};
    SetClock clock;
    WXLDateProvider dates{clock};
    WXLUserEventReporter reporter{repository, dates};
    NotificationCenter notifications;
    int displays = 0;
    WexelInvocationManager manager{{
        .appRepository = repository,
        .userEventReporter = reporter,
        .notifications = notifications,
        .timestamp = [this] { return dates.timestamp(); },
        .display = [this] { ++displays; },
    }};

    static Invocation &make()
    {
        static auto &all = *new std::vector<std::unique_ptr<Invocation>>;
        return *all.emplace_back(std::make_unique<Invocation>());
    }
    [[nodiscard]] auto touches()
    {
        for (int turn = 0; turn < 3; ++turn) // the report, the change, the store of it
            reporter.eventQueue().workingQueue().waitUntilDone();
        return storedRecordsOf<TouchRecord>(repository, kUserEventReportKey);
    }
};

struct InvocationTest : testing::TestWithParam<unsigned> {
    InvocationTest()
    {
        host.setGeometry(100, 100, 300, 400);
        host.show();
        host.requestActivate();
        EXPECT_TRUE(waitUntil([this] { return host.isActive() && host.isExposed(); }));
    }
    ~InvocationTest() override { invocation.manager.closeWindows(); }

    void start(unsigned events) const
    {
        invocation.manager.setInvocationEvents(events);
        invocation.manager.start();
        QCoreApplication::processEvents(); // the button does not hold up the host's start
    }
    void shake()
    {
        for (const int x : {150, 100, 150, 100, 150}) {
            host.setX(x);
            QCoreApplication::processEvents();
        }
    }
    void swipeIn()
    {
        const QPoint edge = host.geometry().topRight() + QPoint(-3, 100);
        drag(host, {edge, edge - QPoint(15, 0), edge - QPoint(45, 0), edge - QPoint(90, 0)});
    }
    static QList<QWindow *> buttons()
    {
        QList<QWindow *> windows = QGuiApplication::topLevelWindows();
        windows.removeIf([](const QWindow *window) {
            return !isMarked(window, clickableWindowProperty) || !window->isVisible();
        });
        return windows;
    }
    static void tapButtons()
    {
        for (QWindow *button : buttons())
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() / 2, button->height() / 2));
    }

    QRasterWindow host;
    Invocation &invocation = Invocation::make();
};

} // namespace

/// Every gesture, whatever is installed.
TEST_P(InvocationTest, eachChosenGestureInvokesOnce)
{
    const unsigned chosen = GetParam();
    const auto has = [chosen](unsigned event) { return (chosen & event) != 0 ? 1 : 0; };
    start(chosen);
    shake();
    const int shakes = has(WexelInvocationEventMotion);
    EXPECT_EQ(invocation.displays, shakes);
    EXPECT_THAT(invocation.touches(), IsEmpty()) << "shaking touches nothing";
    QTest::keyClick(&host, Qt::Key_Print);
    QTest::keyClick(&host, Qt::Key_P);
    const int prints = has(WexelInvocationEventScreenshot);
    EXPECT_EQ(invocation.displays, shakes + prints);
    swipeIn();
    const int swipes = has(WexelInvocationEventRightEdgePan);
    EXPECT_EQ(invocation.displays, shakes + prints + swipes);
    EXPECT_EQ(buttons().size(), has(WexelInvocationEventButton));
    tapButtons();
    EXPECT_EQ(invocation.displays, std::popcount(chosen & 15));
    const auto touches = invocation.touches();
    EXPECT_EQ(touches.size(), std::popcount(chosen & 14));
    for (const auto &touch : touches) {
        EXPECT_EQ(touch->className, QString());
        EXPECT_EQ(touch->viewController, QStringLiteral("Wexel"));
        EXPECT_EQ(touch->property, QString());
        EXPECT_EQ(touch->timestamp, invocation.dates.timestamp());
    }
}
INSTANTIATE_TEST_SUITE_P(Masks, InvocationTest, testing::Values(0, 16, 1, 2, 4, 8, 15 | 16));

TEST_F(InvocationTest, onlyShakingFollowsAMaskThatChangesLaterAndIsInstalledOnce)
{
    start(WexelInvocationEventMotion | WexelInvocationEventButton);
    start(WexelInvocationEventMotion | WexelInvocationEventButton);
    EXPECT_TRUE(waitUntil([] { return buttons().size() == 2; }));
    shake();
    EXPECT_EQ(invocation.displays, 1);
    invocation.manager.setInvocationEvents(WexelInvocationEventScreenshot);
    shake();
    QTest::keyClick(&host, Qt::Key_Print);
    EXPECT_EQ(invocation.displays, 1);
    EXPECT_EQ(buttons().size(), 2);
}

TEST(ScreenshotListenerTest, aNewPictureInTheUsersFolderCountsWhileTheApplicationIsActive)
{
    const QTemporaryDir pictures;
    const auto add = [&pictures](const QString &folder, const char *name) {
        // Comes after the listener's, which therefore has been told when this one has.
        QFileSystemWatcher watcher({pictures.filePath(folder)});
        bool changed = false;
        QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, [&changed] { changed = true; });
        QFile file(pictures.filePath(folder + QLatin1Char('/') + QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(waitUntil([&changed] { return changed; }));
        QCoreApplication::processEvents();
    };
    const QString general = QStringLiteral(".");
    const QString screenshots = QStringLiteral("Screenshots");
    add(general, "Screenshot old.png");
    NotificationCenter notifications;
    int taken = 0;
    notifications.addObserver(ApplicationUserDidTakeScreenshotNotification, [&taken] { ++taken; });
    const ScreenshotListener listener(qApp, notifications, pictures.path());
    QCoreApplication::processEvents(); // it does not hold up the host's start
    // Only in a process of its own, since nothing takes the activity away from one that nobody sees.
    const int early = QGuiApplication::applicationState() == Qt::ApplicationActive ? 1 : 0;
    add(general, "Screenshot of another application.jpg");
    EXPECT_EQ(taken, early);
    QRasterWindow host;
    host.show();
    EXPECT_TRUE(waitUntil([] { return QGuiApplication::applicationState() == Qt::ApplicationActive; }));
    add(general, "saved by the host.png");
    add(general, "Screenshot.txt");
    EXPECT_EQ(taken, early) << "neither a text nor another picture nor those that were there";
    add(general, "Screenshot from today.PNG");
    EXPECT_EQ(taken, early + 1);
    EXPECT_TRUE(QDir(pictures.path()).mkdir(screenshots));
    add(general, "to be told of the new folder.txt");
    add(screenshots, "1.png");
    EXPECT_EQ(taken, early + 2);
}

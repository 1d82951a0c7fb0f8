#include "Presentation/Invocation/WexelInvocationManager.h"

#include <utility>

#include <QEvent>
#include <QGuiApplication>
#include <QStandardPaths>

#include <Wexel/WXLWexel.h>

#include "Business/TouchRecord.h"
#include "Business/WXLUserEventReporter.h"
#include "Platform/NotificationCenter.h"
#include "Presentation/Button/WXLFloatingButtonVC.h"
#include "Presentation/Fonts/Fonts.h"
#include "Presentation/Invocation/MotionListener.h"
#include "Presentation/Invocation/ScreenshotListener.h"
#include "Presentation/Invocation/WexelEdgePanRecognizer.h"

namespace wexel {

namespace {

/// Runs a block when the finger or the button is up again. What the host has pressed would stay so if a flow, which takes
/// all input, opened before.
class AfterRelease final : public QObject
{
public:
    AfterRelease(QObject *application, std::function<void()> block)
        : QObject(application)
        , m_block(std::move(block))
    {
        application->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isUp = event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::TouchEnd
            || event->type() == QEvent::TouchCancel;
        if (isUp && watched->isWindowType() && m_block) {
            deleteLater();
            std::exchange(m_block, {})(); // the host gets its release when this returns
        }
        return false;
    }

private:
    std::function<void()> m_block;
};

} // namespace

WexelInvocationManager::WexelInvocationManager(Collaborators collaborators) : m_with(std::move(collaborators))
{
    m_edgeSwipeHandler.edgeSwipHandlerShouldInvokeStart
        = [this] { new AfterRelease(QCoreApplication::instance(), [this] { invokeWexel(); }); };
}

WexelInvocationManager::~WexelInvocationManager() = default;

void WexelInvocationManager::closeWindows()
{
    m_floatingWindows.clear();
}

void WexelInvocationManager::start()
{
    auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    if (application == nullptr)
        return;
    // Not now: looking into the platform's typefaces for the first time takes several milliseconds.
    QMetaObject::invokeMethod(application, Fonts::registerFonts, Qt::QueuedConnection);
    setupInvocationEnvironment(application);
}

void WexelInvocationManager::setupInvocationEnvironment(QObject *application)
{
    // Once: the bit is tested at each shake.
    if (containsWexelInvocationEvent(WexelInvocationEventMotion) && !std::exchange(m_listensToMotion, true))
        new MotionListener(application, [this] { motionBegan(); });
    if (containsWexelInvocationEvent(WexelInvocationEventButton))
        QMetaObject::invokeMethod(
            application, [this] { setupFloatingButton(); }, Qt::QueuedConnection);
    if (containsWexelInvocationEvent(WexelInvocationEventScreenshot))
        setupScreenshotTrigger(application);
    if (containsWexelInvocationEvent(WexelInvocationEventRightEdgePan))
        setupEdgeTrigger(application);
    // WexelInvocationEventReserved installs nothing.
}

void WexelInvocationManager::setupFloatingButton()
{
    auto viewModel = std::make_shared<WXLFloatingButtonVM>();
    viewModel->wexelFloatingButtonInvocationCallback = [this] { invokeWexel(); };
    auto &window = m_floatingWindows.emplace_back(
        std::make_unique<WXLFloatingButtonVC>(std::move(viewModel), m_with.appRepository));
    window->present();
}

void WexelInvocationManager::setupScreenshotTrigger(QObject *application)
{
    m_with.notifications.addObserver(ApplicationUserDidTakeScreenshotNotification, [this] { invokeWexel(); });
    if (!std::exchange(m_listensToScreenshots, true))
        new ScreenshotListener(application, m_with.notifications,
                               QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
}

void WexelInvocationManager::setupEdgeTrigger(QObject *application)
{
    new WexelEdgePanRecognizer(application,
                               [this](PanGesture &gesture) { m_edgeSwipeHandler.swiped(gesture); });
}

void WexelInvocationManager::motionBegan() const
{
    if (containsWexelInvocationEvent(WexelInvocationEventMotion))
        m_with.display();
}

void WexelInvocationManager::invokeWexel()
{
    m_with.userEventReporter.reportTouch(
        std::make_shared<TouchRecord>(QString(), QStringLiteral("Wexel"), QString(), m_with.timestamp()));
    m_with.display();
}

} // namespace wexel

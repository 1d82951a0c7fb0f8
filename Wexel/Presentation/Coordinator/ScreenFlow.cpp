#include <utility>

#include <QGuiApplication>

#include "Business/Flow.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLUserEventReporter.h"
#include "Platform/ApplicationEnd.h"
#include "Platform/MainScheduler.h"
#include "Platform/NotificationCenter.h"
#include "Presentation/Banner/WXLMessageBannerManager.h"
#include "Presentation/Coordinator/WXLCoordinator.h"
#include "Presentation/Coordinator/WXLScreenshotService.h"
#include "Presentation/Fonts/Fonts.h"
#include "Presentation/Helpers/TopController.h"
#include "Presentation/Helpers/WXLBrandingService.h"
#include "Presentation/Invocation/WexelInvocationManager.h"

namespace wexel {

namespace {

/// The flow of a build with screens.
class ScreenFlow final : public Flow
{
public:
    ScreenFlow()
    {
        // The library's windows go while there still is an application for them.
        ApplicationEnd::perform(ApplicationEnd::Phase::MainThread, [this] {
            m_coordinator.reset();
            m_bannerManager.closeWindows();
            if (m_invocationManager)
                m_invocationManager->closeWindows();
        });
    }

    void startInvocation(unsigned events, std::function<void()> display) override
    {
        if (!m_invocationManager)
            m_invocationManager = makeInvocationManager(std::move(display));
        m_invocationManager->setInvocationEvents(events);
        m_invocationManager->start();
    }

    void open(const FlowServices &services, std::function<void()> onFinish) override
    {
        if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) == nullptr)
            return onFinish();
        Fonts::registerFonts(); // the host may not have got to its event loop yet
        m_brandingService.start();
        m_coordinator
            = std::make_shared<WXLCoordinator>(services, m_brandingService.branding(), m_bannerManager);
        m_coordinator->onCoordinatorFinish = [this, onFinish = std::move(onFinish)] {
            const auto finished = onFinish; // goes with the coordinator
            m_coordinator.reset();
            finished();
        };
        const auto coordinator = m_coordinator; // it may finish while it starts
        coordinator->start();
    }

    double topWindowLevel() const override { return 0; } // Qt gives every ordinary window the same level

    QImage takeScreenshot() const override { return WXLScreenshotService::sharedInstance().takeScreenshot(); }

    std::optional<QString> topViewControllerName() const override
    {
        const QString name = topControllerName();
        return name.isEmpty() ? std::nullopt : std::optional(name);
    }

private:
    std::unique_ptr<WexelInvocationManager> makeInvocationManager(std::function<void()> display)
    {
        return std::make_unique<WexelInvocationManager>(WexelInvocationManager::Collaborators{
            .appRepository = WXLAppRepository::sharedInstance(),
            .userEventReporter = WXLUserEventReporter::shared(),
            .notifications = NotificationCenter::defaultCenter(),
            .timestamp = [] { return WXLDateProvider::sharedInstance().timestamp(); },
            .display = std::move(display),
        });
    }

    WXLBrandingService m_brandingService;
    WXLMessageBannerManager m_bannerManager{MainScheduler::shared()};
    std::unique_ptr<WexelInvocationManager> m_invocationManager;
    std::shared_ptr<WXLCoordinator> m_coordinator;
};

} // namespace

std::unique_ptr<Flow> makeFlow()
{
    return std::make_unique<ScreenFlow>();
}

} // namespace wexel

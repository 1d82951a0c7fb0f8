#include "Presentation/Coordinator/WXLCoordinator.h"

#include <utility>

#include <Wexel/WXLWexelFile.h>
#include <Wexel/WXLWexelReportData.h>

#include "Business/WXLAppRepository.h"
#include "OfflineManager/WXLUploader.h"
#include "Platform/Log.h"
#include "Platform/NotificationCenter.h"
#include "Presentation/Banner/WXLMessageBannerManager.h"
#include "Presentation/Coordinator/FlowView.h"
#include "Presentation/Coordinator/WXLDisplayWindow.h"
#include "Presentation/Coordinator/WXLScreenshotService.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/WXLBranding.h"
#include "Presentation/InspectBug/WXLInspectBugVC.h"
#include "Presentation/ReportCompose/WXLReportComposeViewController.h"
#include "Presentation/ReportCompose/WXLReportComposeViewModel.h"
#include "Presentation/ReportingDisabled/WXLReportingDisabledPopupVC.h"
#include "Presentation/Screen/WXLScreenshotVC.h"
#include "Presentation/Screen/WXLScreenshotVM.h"

namespace wexel {

WXLCoordinator::WXLCoordinator(FlowServices services, std::shared_ptr<WXLBranding> branding,
                               WXLMessageBannerManager &bannerManager)
    : m_services(std::move(services))
    , m_branding(std::move(branding))
    , m_bannerManager(bannerManager)
{
}

WXLCoordinator::~WXLCoordinator() = default;

void WXLCoordinator::start()
{
    m_applicationKeyWindow = hostKeyWindow();
    m_reportData = m_services.prepareReportData();
    pushEditImageScreen();
}

void WXLCoordinator::pushEditImageScreen()
{
    const QImage screenshot = WXLScreenshotService::sharedInstance().takeScreenshot();
    if (screenshot.isNull()) {
        log(QStringLiteral("WXLCoordinator: The application shows no window to report on"));
        return finish();
    }
    m_displayWindow = std::make_unique<WXLDisplayWindow>();
    auto *editor = m_displayWindow->screen<WXLScreenshotVC>("Screenshot.qml");
    if (editor == nullptr)
        return finish();
    auto viewModel = std::make_shared<WXLScreenshotVM>(screenshot, m_reportData);
    viewModel->onDidPressNextButton = [this](const auto &reportData) { nextPressed(reportData); };
    viewModel->onDidPressCloseButton = [this] { dismiss(); };
    editor->viewDidLoad(std::move(viewModel), *m_branding, m_services.appRepository);
    m_displayWindow->view().navigationController().pushViewController(editor, false);
    openWindow(screenshot);
    if (!m_services.appRepository.applicationActive())
        pushReportingDisabledPopup();
}

void WXLCoordinator::openWindow(const QImage &screenshot)
{
    m_displayWindow->onCloseRequest = [this] { dismiss(); };
    m_displayWindow->onStageLost = [this] { finishLater(); };
    m_displayWindow->view().setBackdrop(screenshot);
    QObject::connect(&m_displayWindow->view(), &FlowView::closed, &m_context, [this] { finishLater(); });
    m_displayWindow->makeKeyAndVisible();
    m_displayWindow->view().open();
}

void WXLCoordinator::nextPressed(const std::shared_ptr<WXLWexelReportData> &reportData)
{
    const auto &screenshot = reportData->screenshotFile;
    if (m_userRemovedFile && screenshot && m_userRemovedFile->fileIsEqual(*screenshot)) {
        m_reportData->screenshotFile = nullptr; // removed before and unchanged since: it stays removed
    } else {
        m_userRemovedFile = nullptr;
        m_reportData = reportData;
    }
    pushReportComposeScreen();
}

void WXLCoordinator::pushReportingDisabledPopup()
{
    auto *popup = m_displayWindow->screen<WXLReportingDisabledPopupVC>("ReportingDisabledPopup.qml");
    if (popup == nullptr)
        return dismiss();
    auto viewModel = std::make_shared<WXLReportingDisabledPopupVM>();
    viewModel->dismissCallback = [this] { dismiss(); };
    popup->viewDidLoad(std::move(viewModel));
    m_displayWindow->view().navigationController().presentViewController(popup);
}

void WXLCoordinator::pushReportComposeScreen()
{
    auto *screen = m_displayWindow->screen<WXLReportComposeViewController>("ReportCompose.qml");
    if (screen == nullptr)
        return;
    screen->viewDidLoad(composeViewModel());
    m_firstTimeOnReportCompose = false;
    NavigationController &navigation = m_displayWindow->view().navigationController();
    QObject::connect(screen, &WXLReportComposeViewController::popped, screen, [this] { pop(); });
    QObject::connect(&navigation, &NavigationController::appeared, screen, [screen](const QQuickItem *top) {
        if (top == screen)
            screen->viewDidAppear();
    });
    navigation.pushViewController(screen, true);
}

std::shared_ptr<WXLReportComposeViewModel> WXLCoordinator::composeViewModel()
{
    auto viewModel
        = std::make_shared<WXLReportComposeViewModel>(m_reportData, NotificationCenter::defaultCenter());
    viewModel->submitButtonPressed
        = [this](const auto &reportData, const auto &email) { submit(reportData, email); };
    viewModel->onDidPressDeleteAttachment = [this](const auto &file) { m_userRemovedFile = file; };
    viewModel->onDidPressInspectButton = [this] { showInspectBugScreen(); };
    viewModel->backButtonPressed = [this](const auto &description) { m_enteredBugDescription = description; };
    viewModel->bugDescription = m_enteredBugDescription;
    viewModel->emailAddress = m_services.appRepository.emailAddress();
    viewModel->shownFirstTime = m_firstTimeOnReportCompose;
    return viewModel;
}

void WXLCoordinator::showInspectBugScreen()
{
    auto *screen = m_displayWindow->screen<WXLInspectBugVC>("InspectBug.qml");
    if (screen == nullptr)
        return;
    screen->viewDidLoad(WXLInspectBugVM(m_reportData), *m_branding);
    QObject::connect(screen, &WXLInspectBugVC::popped, screen, [this] { pop(); });
    m_displayWindow->view().navigationController().pushViewController(screen, true);
}

void WXLCoordinator::pop()
{
    m_displayWindow->view().navigationController().popViewController();
}

void WXLCoordinator::submit(const std::shared_ptr<WXLWexelReportData> &reportData,
                            const std::optional<QString> &email)
{
    if (m_isClosing)
        return;
    if (email)
        m_services.appRepository.setEmailAddress(email);
    m_services.uploader.uploadData(reportData);
    dismiss();
    m_bannerManager.showBanner();
}

void WXLCoordinator::dismiss()
{
    if (!m_displayWindow || std::exchange(m_isClosing, true))
        return;
    m_enteredBugDescription.reset();
    m_userRemovedFile = nullptr;
    m_displayWindow->view().setBackdrop(WXLScreenshotService::sharedInstance().takePictureOfHost());
    m_displayWindow->view().close();
}

// One of the window's own signals may have come here.
void WXLCoordinator::finishLater()
{
    m_isClosing = true;
    m_displayWindow->hide();
    QMetaObject::invokeMethod(
        &m_context, [this] { finish(); }, Qt::QueuedConnection);
}

void WXLCoordinator::finish()
{
    m_displayWindow.reset();
    if (const auto window = std::exchange(m_applicationKeyWindow, nullptr))
        window->requestActivate();
    if (const auto finished = std::exchange(onCoordinatorFinish, {}))
        finished(); // may destroy the coordinator
}

} // namespace wexel

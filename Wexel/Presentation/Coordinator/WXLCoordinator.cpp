#include "Presentation/Coordinator/WXLCoordinator.h"

#include <utility>

#include <Wexel/WXLWexelFile.h>
#include <Wexel/WXLWexelReportData.h>

#include "Business/WXLAppRepository.h"
#include "OfflineManager/WXLUploader.h"
#include "Platform/Log.h"
#include "Presentation/Coordinator/FlowView.h"
#include "Presentation/Coordinator/WXLDisplayWindow.h"
#include "Presentation/Coordinator/WXLScreenshotService.h"
#include "Presentation/Helpers/HostWindows.h"
#include "Presentation/Helpers/WXLBranding.h"
#include "Presentation/Screen/WXLScreenshotVC.h"
#include "Presentation/Screen/WXLScreenshotVM.h"

namespace wexel {

WXLCoordinator::WXLCoordinator(FlowServices services, std::shared_ptr<WXLBranding> branding)
    : m_services(std::move(services))
    , m_branding(std::move(branding))
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
    auto *editor = m_displayWindow->pushScreen<WXLScreenshotVC>("Screenshot.qml");
    if (editor == nullptr)
        return finish();
    auto viewModel = std::make_shared<WXLScreenshotVM>(screenshot, m_reportData);
    viewModel->onDidPressNextButton = [this](const auto &reportData) { nextPressed(reportData); };
    viewModel->onDidPressCloseButton = [this] { dismiss(); };
    editor->viewDidLoad(std::move(viewModel), *m_branding, m_services.appRepository);
    openWindow(screenshot);
}

void WXLCoordinator::openWindow(const QImage &screenshot)
{
    m_displayWindow->onCloseRequest = [this] { dismiss(); };
    m_displayWindow->onStageLost = [this] { finish(); };
    m_displayWindow->view().setBackdrop(screenshot);
    QObject::connect(&m_displayWindow->view(), &FlowView::closed, m_displayWindow.get(),
                     [this] { finish(); });
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
    submit();
}

void WXLCoordinator::submit()
{
    m_services.uploader.uploadData(m_reportData);
    dismiss();
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

void WXLCoordinator::finish()
{
    if (m_displayWindow) {
        m_displayWindow->onStageLost = {};
        m_displayWindow->hide();
        m_displayWindow.release()->deleteLater(); // one of its own signals may have come here
    }
    if (const auto window = std::exchange(m_applicationKeyWindow, nullptr))
        window->requestActivate();
    if (const auto finished = std::exchange(onCoordinatorFinish, {}))
        finished();
}

} // namespace wexel

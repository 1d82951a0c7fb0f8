#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QImage>
#include <QPointer>
#include <QString>
#include <QWindow>

#include "Business/Flow.h"

namespace wexel {

class WXLBranding;
class WXLDisplayWindow;
class WXLMessageBannerManager;
class WXLReportComposeViewModel;
class WXLWexelFile;

/// Runs one reporting flow, from the invocation to the submission or the cancellation.
///
/// Not started -> editing the screenshot <-> composing <-> inspecting; from editing or composing -> closing (the report
/// handed on, or not) -> finished. While the backend takes no reports of the application, a popup over the editor leads
/// to closing, too. The owner keeps it until `onCoordinatorFinish`. Main thread only.
class WXLCoordinator
{
public:
    /// \param services outlive the coordinator
    WXLCoordinator(FlowServices services, std::shared_ptr<WXLBranding> branding,
                   WXLMessageBannerManager &bannerManager);
    ~WXLCoordinator();
    WXLCoordinator(const WXLCoordinator &) = delete;
    WXLCoordinator &operator=(const WXLCoordinator &) = delete;

    /// Called once, last of all.
    std::function<void()> onCoordinatorFinish;

    void start();
    void dismiss();

private:
    void pushEditImageScreen();
    void openWindow(const QImage &screenshot);
    void pushReportingDisabledPopup();
    void nextPressed(const std::shared_ptr<WXLWexelReportData> &reportData);
    void pushReportComposeScreen();
    [[nodiscard]] std::shared_ptr<WXLReportComposeViewModel> composeViewModel();
    void showInspectBugScreen();
    void submit(const std::shared_ptr<WXLWexelReportData> &reportData, const std::optional<QString> &email);
    void pop();
    void finishLater();
    void finish();

    FlowServices m_services;
    std::shared_ptr<WXLBranding> m_branding;
    WXLMessageBannerManager &m_bannerManager;
    std::shared_ptr<WXLWexelReportData> m_reportData;
    std::unique_ptr<WXLDisplayWindow> m_displayWindow;
    QPointer<QWindow> m_applicationKeyWindow;
    bool m_firstTimeOnReportCompose = true;
    std::shared_ptr<WXLWexelFile> m_userRemovedFile; ///< the last attachment that the tester removed
    std::optional<QString> m_enteredBugDescription; ///< kept while the tester goes back
    bool m_isClosing = false;
    QObject m_context; ///< of what is still to be done
};

} // namespace wexel

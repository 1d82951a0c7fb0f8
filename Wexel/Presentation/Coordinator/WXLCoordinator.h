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
class WXLWexelFile;

/// Runs one reporting flow, from the invocation to the submission or the cancellation.
///
/// Not started -> editing the screenshot -> closing (the report handed on, or not) -> finished. The owner keeps it until
/// `onCoordinatorFinish`. Main thread only.
class WXLCoordinator
{
public:
    /// \param services outlive the coordinator
    WXLCoordinator(FlowServices services, std::shared_ptr<WXLBranding> branding);
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
    void nextPressed(const std::shared_ptr<WXLWexelReportData> &reportData);
    void submit();
    void finish();

    FlowServices m_services;
    std::shared_ptr<WXLBranding> m_branding;
    std::shared_ptr<WXLWexelReportData> m_reportData;
    std::unique_ptr<WXLDisplayWindow> m_displayWindow;
    QPointer<QWindow> m_applicationKeyWindow;
    std::shared_ptr<WXLWexelFile> m_userRemovedFile;
    std::optional<QString> m_enteredBugDescription;
    bool m_isClosing = false;
};

} // namespace wexel

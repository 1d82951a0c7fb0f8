#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QImage>
#include <QString>

namespace wexel {

class WXLAppRepository;
class WXLUploader;
class WXLWexelReportData;

/// What a reporting flow works with. The references outlive it.
struct FlowServices {
    WXLUploader &uploader;
    WXLAppRepository &appRepository;
    /// A new report, gathered and passed through the host's hook.
    std::function<std::shared_ptr<WXLWexelReportData>()> prepareReportData;
};

/// What the core needs of the screens; a build without them has an implementation that shows nothing. Main thread
/// only.
class Flow
{
public:
    virtual ~Flow() = default;

    /// Installs the triggers of the invocation events; each of them calls `display`. A further call installs them again.
    virtual void startInvocation(unsigned events, std::function<void()> display) = 0;
    /// Opens the reporting flow. `onFinish` is called once, when it has closed, or at once when there is nothing to open
    /// it over.
    virtual void open(const FlowServices &services, std::function<void()> onFinish) = 0;

    /// Level of the host's topmost window.
    [[nodiscard]] virtual double topWindowLevel() const = 0;
    /// All windows of the application in one image; null when there is nothing to draw.
    [[nodiscard]] virtual QImage takeScreenshot() const = 0;
    /// Class of the screen that the user sees, as a developer of the host would call it.
    [[nodiscard]] virtual std::optional<QString> topViewControllerName() const = 0;
};

/// The flow of this build.
std::unique_ptr<Flow> makeFlow();

} // namespace wexel

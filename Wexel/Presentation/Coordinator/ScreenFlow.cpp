#include "Business/Flow.h"
#include "Presentation/Coordinator/WXLScreenshotService.h"
#include "Presentation/Helpers/TopController.h"

namespace wexel {

namespace {

/// The flow of a build with screens.
class ScreenFlow final : public Flow
{
public:
    double topWindowLevel() const override { return 0; } // Qt gives every ordinary window the same level

    QImage takeScreenshot() const override { return WXLScreenshotService::sharedInstance().takeScreenshot(); }

    std::optional<QString> topViewControllerName() const override
    {
        const QString name = topControllerName();
        return name.isEmpty() ? std::nullopt : std::optional(name);
    }
};

} // namespace

std::unique_ptr<Flow> makeFlow()
{
    return std::make_unique<ScreenFlow>();
}

} // namespace wexel

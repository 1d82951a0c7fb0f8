#include "Business/Flow.h"

namespace wexel {

namespace {

/// The flow of a build without screens.
class NoFlow final : public Flow
{
public:
    double topWindowLevel() const override { return 0; }
    QImage takeScreenshot() const override { return {}; }
    std::optional<QString> topViewControllerName() const override { return {}; }
};

} // namespace

std::unique_ptr<Flow> makeFlow()
{
    return std::make_unique<NoFlow>();
}

} // namespace wexel

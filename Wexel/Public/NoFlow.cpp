#include "Business/Flow.h"

#include "Platform/Log.h"

namespace wexel {

namespace {

/// The flow of a build without screens.
class NoFlow final : public Flow
{
public:
    void startInvocation(unsigned, std::function<void()>) override { }
    void open(const FlowServices &, std::function<void()> onFinish) override
    {
        log(QStringLiteral("WXLWexel: This build has no screens to report with"));
        onFinish();
    }
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

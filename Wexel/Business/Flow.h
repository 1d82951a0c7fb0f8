#pragma once

#include <memory>
#include <optional>

#include <QImage>
#include <QString>

namespace wexel {

/// What the core needs of the screens; a build without them has an implementation that shows nothing. Main thread
/// only.
class Flow
{
public:
    virtual ~Flow() = default;

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

#pragma once

#include <functional>
#include <memory>

#include <QImage>

namespace wexel {

class WXLWexelReportData;

/// What stands behind the screenshot editor. Main thread only.
class WXLScreenshotVM
{
public:
    /// \param reportData shared with the whole flow
    WXLScreenshotVM(QImage image, std::shared_ptr<WXLWexelReportData> reportData);

    QImage screenshotImage; ///< with all marks so far
    std::function<void(const std::shared_ptr<WXLWexelReportData> &)> onDidPressNextButton;
    std::function<void()> onDidPressCloseButton;

    /// Makes the marked image the report's screenshot, in place of an earlier one, and goes on.
    void didPressNextButton();
    void didPressCloseButton() const;

private:
    std::shared_ptr<WXLWexelReportData> m_reportData;
};

} // namespace wexel

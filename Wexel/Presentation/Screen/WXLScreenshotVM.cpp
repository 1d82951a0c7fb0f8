#include "Presentation/Screen/WXLScreenshotVM.h"

#include <utility>

#include <Wexel/WXLWexelFile.h>
#include <Wexel/WXLWexelReportData.h>

#include "Business/ImageData.h"

namespace wexel {

WXLScreenshotVM::WXLScreenshotVM(QImage image, std::shared_ptr<WXLWexelReportData> reportData)
    : screenshotImage(std::move(image))
    , m_reportData(std::move(reportData))
{
}

void WXLScreenshotVM::didPressNextButton()
{
    m_reportData->screenshotFile
        = std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), getImageData(screenshotImage));
    if (onDidPressNextButton)
        onDidPressNextButton(m_reportData);
}

void WXLScreenshotVM::didPressCloseButton() const
{
    if (onDidPressCloseButton)
        onDidPressCloseButton();
}

} // namespace wexel

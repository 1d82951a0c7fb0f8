#include "Presentation/ReportCompose/AttachedImages.h"

#include <Wexel/WXLWexelFile.h>
#include <Wexel/WXLWexelReportData.h>

namespace wexel {

QList<QImage> attachedImages(const WXLWexelReportData &reportData)
{
    const auto &file = reportData.screenshotFile;
    if (!file || file->data().isEmpty())
        return {};
    return {QImage::fromData(file->data())};
}

} // namespace wexel

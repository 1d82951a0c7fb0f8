#pragma once

#include <memory>

#include <Wexel/WXLWexelReportData.h>

#include "Business/ReportKeys.h"

namespace wexel {

/// A report with that description and a small screenshot.
inline std::shared_ptr<WXLWexelReportData> makeReport(const QString &description)
{
    auto report = std::make_shared<WXLWexelReportData>(QVariantMap{{kWXLUserInput, description}});
    report->screenshotFile
        = std::make_shared<WXLWexelFile>(QStringLiteral("screenshot.jpg"), description.toUtf8());
    return report;
}

} // namespace wexel

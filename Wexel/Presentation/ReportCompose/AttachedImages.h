#pragma once

#include <QImage>
#include <QList>

namespace wexel {

class WXLWexelReportData;

/// The pictures that a report shows as attached: its screenshot, if that has data. Data that is no picture gives a null
/// image, an empty card.
[[nodiscard]] QList<QImage> attachedImages(const WXLWexelReportData &reportData);

} // namespace wexel

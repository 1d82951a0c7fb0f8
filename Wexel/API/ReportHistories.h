#pragma once

#include <QJsonArray>
#include <QJsonObject>

namespace wexel {

class WXLAPIReport;

// The histories of a report as JSON. Only non-empty ones are in the objects, and only records that have every field
// their element uses are in the arrays.

[[nodiscard]] QJsonObject blackBoxObject(const WXLAPIReport &report);
[[nodiscard]] QJsonObject logObject(const WXLAPIReport &report);
[[nodiscard]] QJsonArray sessionsArray(const WXLAPIReport &report);

} // namespace wexel

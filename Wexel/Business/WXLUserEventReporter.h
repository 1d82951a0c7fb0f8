#pragma once
#include <QDateTime>
#include <QVariantList>
#include "Business/HistoryKeys.h"
#include "Business/HistorySnapshot.h"
#include "Business/WXLTimeQueue.h"
namespace wexel {
class WXLUserEventReporter {
public:
    static WXLUserEventReporter &shared() { static auto *i = new WXLUserEventReporter; return *i; }
    void removeRecordsOlderThan(const QDateTime &) {}
    static std::optional<QVariantList> userEventHistory(const WXLAppRepository &r) { return historySnapshot(r, kUserEventReportKey, QStringLiteral("WXLEventReporter")); }
};
}

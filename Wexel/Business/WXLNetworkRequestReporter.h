#pragma once
#include <QDateTime>
#include <QVariantList>
#include "Business/HistoryKeys.h"
#include "Business/HistorySnapshot.h"
#include "Business/WXLTimeQueue.h"
namespace wexel {
class WXLNetworkRequestReporter {
public:
    static WXLNetworkRequestReporter &shared() { static auto *i = new WXLNetworkRequestReporter; return *i; }
    void removeRecordsOlderThan(const QDateTime &) {}
    static std::optional<QVariantList> networkRequestHistory(const WXLAppRepository &r) { return historySnapshot(r, kNetworkRequestReportKey, QStringLiteral("WXLNetworkRequestReporter")); }
};
}

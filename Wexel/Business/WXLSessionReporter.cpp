#include "Business/WXLSessionReporter.h"

#include "Business/HistoryKeys.h"
#include "Business/HistorySnapshot.h"
#include "Business/SampleRecords.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLNetworkRequestReporter.h"
#include "Business/WXLUserEventReporter.h"
#include "Platform/NotificationCenter.h"
#include "Platform/SerialQueue.h"

namespace wexel {

WXLSessionReporter::WXLSessionReporter(WXLAppRepository &repository, const WXLDateProvider &dateProvider,
                                       NotificationCenter &notifications, Prune prune)
    : m_repository(repository)
    , m_dateProvider(dateProvider)
    , m_prune(std::move(prune))
    , m_sessionQueue(repository, NUMBER_OF_SESSION_OBJECTS_TO_REPORT, kWXLSessionHistoryKey)
{
    const auto observe = [&](const QString &notification, const QString &code) {
        notifications.addObserver(notification, [this, code] { reportState(code); });
    };
    observe(ApplicationWillEnterForegroundNotification, sessionEnteredForeground);
    observe(ApplicationWillResignActiveNotification, sessionResignedActive);
    observe(ApplicationDidEnterBackgroundNotification, sessionEnteredBackground);
    reportState(sessionEnteredForeground, WXLDateProvider::stringFromDate(dateProvider.now().addSecs(-1)));
}

WXLSessionReporter &WXLSessionReporter::sharedInstance()
{
    // Never destroyed: it observes for the life of the process.
    static auto *instance
        = new WXLSessionReporter(WXLAppRepository::sharedInstance(), WXLDateProvider::sharedInstance(),
                                 NotificationCenter::defaultCenter(), [](const QDateTime &oldest) {
                                     WXLNetworkRequestReporter::shared().removeRecordsOlderThan(oldest);
                                     WXLUserEventReporter::shared().removeRecordsOlderThan(oldest);
                                 });
    return *instance;
}

void WXLSessionReporter::reportState(const QString &code)
{
    reportState(code, WXLDateProvider::stringFromDate(m_dateProvider.now()));
}

void WXLSessionReporter::reportState(const QString &code, const QString &timestamp)
{
    m_sessionQueue.push(std::make_shared<Record>(code, timestamp));
    // There, so that the main thread does not wait for the store when the host starts; and in two steps, so that the push,
    // which has itself stored in a second step, is stored by then.
    m_sessionQueue.workingQueue().async([this] {
        m_sessionQueue.workingQueue().async([this] {
            if (const auto oldest = oldestSessionDate(m_repository))
                m_prune(*oldest);
        });
    });
}

QVariantList WXLSessionReporter::sessionHistory(const WXLAppRepository &repository)
{
    const auto stored = repository.getData(kWXLSessionHistoryKey);
    return stored ? storedRecords(*stored) : QVariantList();
}

std::optional<QString> WXLSessionReporter::oldestSessionTimestamp(const WXLAppRepository &repository)
{
    const QVariantList history = sessionHistory(repository);
    const auto oldest
        = std::dynamic_pointer_cast<Record>(history.value(0).value<std::shared_ptr<SecureCoding>>());
    return oldest ? oldest->timestamp : std::nullopt;
}

std::optional<QDateTime> WXLSessionReporter::oldestSessionDate(const WXLAppRepository &repository)
{
    const auto timestamp = oldestSessionTimestamp(repository);
    return timestamp ? WXLDateProvider::dateFromTimestamp(*timestamp) : std::nullopt;
}

} // namespace wexel

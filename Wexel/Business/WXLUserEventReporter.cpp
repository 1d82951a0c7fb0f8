#include "Business/WXLUserEventReporter.h"

#include <QMetaProperty>

#include "Business/HistoryKeys.h"
#include "Business/HistorySnapshot.h"
#include "Business/TouchRecord.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Business/WXLSessionReporter.h"
#include "Platform/HostClassName.h"
#include "Platform/SerialQueue.h"

namespace wexel {

WXLUserEventReporter::WXLUserEventReporter(WXLAppRepository &repository, const WXLDateProvider &dateProvider)
    : m_repository(repository)
    , m_dateProvider(dateProvider)
    , m_eventQueue(repository, kUserEventReportKey)
{
}

WXLUserEventReporter &WXLUserEventReporter::shared()
{
    // Never destroyed: taps come as long as there are windows.
    static auto *instance
        = new WXLUserEventReporter(WXLAppRepository::sharedInstance(), WXLDateProvider::sharedInstance());
    return *instance;
}

void WXLUserEventReporter::reportViewTouched(const QObject &view, const QObject *topController)
{
    const QString className = hostClassName(view.metaObject());
    const QMetaObject *screen = topController != nullptr ? topController->metaObject() : nullptr;
    reportTouch(std::make_shared<TouchRecord>(
        className, screen != nullptr ? hostClassName(screen) : QString(),
        screen != nullptr ? getPropertyName(className, screen) : QString(), m_dateProvider.timestamp()));
}

void WXLUserEventReporter::reportTouch(const std::shared_ptr<const TouchRecord> &record)
{
    // Behind the working queue: the store may be busy with the disk.
    m_eventQueue.workingQueue().async([queue = m_eventQueue, &repository = m_repository, record]() mutable {
        queue.push(record, WXLSessionReporter::oldestSessionDate(repository));
    });
}

void WXLUserEventReporter::removeRecordsOlderThan(const QDateTime &limit)
{
    m_eventQueue.removeRecordsOlderThan(limit);
}

QString WXLUserEventReporter::getPropertyName(const QString &className,
                                              const QMetaObject *viewControllerClass)
{
    const QMetaObject *declaring = hostClass(viewControllerClass);
    QStringList names;
    QStringList classNames;
    for (int i = declaring->propertyOffset(); i < declaring->propertyCount(); ++i) {
        const QMetaProperty property = declaring->property(i);
        names.append(QString::fromUtf8(property.name()));
        const QMetaType type = property.metaType(); // values, enumerations too, may have a meta-object
        if (type.flags().testFlag(QMetaType::PointerToQObject) && type.metaObject())
            classNames.append(hostClassName(type.metaObject()));
    }
    const auto match = classNames.lastIndexOf(className);
    return match >= 0 ? names.at(match) : QString();
}

std::optional<QVariantList> WXLUserEventReporter::userEventHistory(const WXLAppRepository &repository)
{
    return historySnapshot(repository, kUserEventReportKey, QStringLiteral("WXLEventReporter"));
}

} // namespace wexel

#include "Business/PersistedHistory.h"

#include <algorithm>
#include <numeric>

#include "Business/HistorySnapshot.h"
#include "Business/NetworkRequestRecord.h"
#include "Business/SampleRecords.h"
#include "Business/TouchRecord.h"
#include "Business/WXLAppRepository.h"
#include "Business/WXLDateProvider.h"
#include "Platform/Log.h"

namespace wexel {

namespace {

template <typename... Records>
std::optional<QString> timestampOfAny(const WXLBlackBoxObject &object)
{
    std::optional<QString> timestamp;
    const auto look = [&](const auto *record) {
        if (record)
            timestamp = record->timestamp;
    };
    (look(dynamic_cast<const Records *>(&object)), ...);
    return timestamp;
}

std::optional<QString> timestampOf(const WXLBlackBoxObject &object)
{
    return timestampOfAny<Record, TouchRecord, NetworkRequestRecord, Network, Battery>(object);
}

} // namespace

std::shared_ptr<PersistedHistory> PersistedHistory::make(WXLAppRepository &repository, QString key,
                                                         QString owner, QString strand)
{
    std::shared_ptr<PersistedHistory> history(
        new PersistedHistory(repository, std::move(key), std::move(owner), std::move(strand)));
    history->m_strand.async([history] { history->load(); });
    return history;
}

PersistedHistory::PersistedHistory(WXLAppRepository &repository, QString key, QString owner, QString strand)
    : m_repository(repository)
    , m_key(std::move(key))
    , m_owner(std::move(owner))
    , m_strand(std::move(strand))
{
}

void PersistedHistory::async(std::function<void(PersistedHistory &)> change)
{
    m_strand.async([self = shared_from_this(), change = std::move(change)] {
        change(*self);
        // Stored behind the changes that already wait, all of them at once.
        if (!std::exchange(self->m_savePending, true))
            self->m_strand.async([self] { self->save(); });
    });
}

void PersistedHistory::close()
{
    const std::lock_guard lock(m_mutex);
    m_closed = true;
}

void PersistedHistory::append(const Record &record)
{
    std::optional<Error> error;
    // The archiver only reads, though its values are shared for writing.
    const ArchivedObject object = std::const_pointer_cast<WXLBlackBoxObject>(record);
    auto archived = KeyedArchiver::archivedElement(QVariant::fromValue(object), &error);
    if (error)
        log(QStringLiteral("%1: Error serializing data: %2, key -> %3")
                .arg(m_owner, error->localizedDescription(), m_key));
    m_entries.push_back({record, timestampOf(*record), std::move(archived)});
}

void PersistedHistory::limit(qsizetype most)
{
    qsizetype left = bytes();
    if (left <= most)
        return;
    // Not one by one: each time the whole archive moves up and is written anew.
    for (; left > most / 4 * 3; m_entries.pop_front())
        left -= m_entries.front().bytes();
}

qsizetype PersistedHistory::bytes() const
{
    return std::accumulate(m_entries.begin(), m_entries.end(), qsizetype(0),
                           [](qsizetype sum, const Entry &entry) { return sum + entry.bytes(); });
}

void PersistedHistory::remove(const Record &record)
{
    // From the end: who comes again is most likely among the last.
    const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(),
                                    [&](const Entry &entry) { return entry.record.lock() == record; });
    if (found != m_entries.rend())
        m_entries.erase(std::next(found).base());
}

void PersistedHistory::removeOlderThan(const QDateTime &limit)
{
    std::erase_if(m_entries, [&](const Entry &entry) {
        const auto date = entry.timestamp ? WXLDateProvider::dateFromTimestamp(*entry.timestamp)
                                          : std::optional<QDateTime>();
        return date && *date < limit;
    });
}

void PersistedHistory::load()
{
    const auto stored = m_repository.getData(m_key);
    for (const QVariant &value : stored ? storedRecords(*stored) : QVariantList()) {
        const Record record = std::dynamic_pointer_cast<WXLBlackBoxObject>(value.value<ArchivedObject>());
        if (record)
            append(record);
    }
}

void PersistedHistory::save()
{
    m_savePending = false;
    const auto archive = archivedData();
    if (!archive)
        return log(QStringLiteral("%1: Error archiving data, key -> %2").arg(m_owner, m_key));
    const std::lock_guard lock(m_mutex);
    if (!m_closed)
        m_repository.setData(*archive, m_key);
}

std::optional<QByteArray> PersistedHistory::archivedData() const
{
    std::vector<const KeyedArchiver::Element *> elements;
    elements.reserve(m_entries.size());
    for (const Entry &entry : m_entries) {
        if (!entry.archived)
            return {};
        elements.push_back(&*entry.archived);
    }
    std::optional<Error> error;
    auto archive = KeyedArchiver::archivedDataWithElements(elements, &error);
    if (error)
        log(QStringLiteral("%1: Error serializing data: %2, key -> %3")
                .arg(m_owner, error->localizedDescription(), m_key));
    return archive;
}

} // namespace wexel

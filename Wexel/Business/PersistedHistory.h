#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include <QDateTime>
#include <QString>

#include "Platform/KeyedArchiver.h"
#include "Platform/SerialQueue.h"

namespace wexel {

class WXLAppRepository;
class WXLBlackBoxObject;

/// What both kinds of history share: the entries, oldest first, and their stored copy, which is the one that readers
/// see. It is loaded when the strand first runs, and stored again whenever the strand has made changes and runs dry, so
/// that a burst of pushes costs one archive.
///
/// An entry is archived once, when it is appended; only its archive is kept, the record itself may go.
///
/// `async` and `close` may be called from any thread, everything else on the strand. Blocks on the strand keep the
/// object alive, so an owner may drop it at any time.
class PersistedHistory : public std::enable_shared_from_this<PersistedHistory>
{
public:
    using Record = std::shared_ptr<const WXLBlackBoxObject>;

    /// \param owner class name for log lines
    /// \param strand label of the strand
    [[nodiscard]] static std::shared_ptr<PersistedHistory> make(WXLAppRepository &repository, QString key,
                                                                QString owner, QString strand);

    /// Changes the entries on the strand, after all changes before it, and has them stored.
    void async(std::function<void(PersistedHistory &)> change);
    /// From its return on nothing is stored any more.
    void close();

    /// Once the archive is larger than that, the oldest entries go until it has three quarters of it.
    void limit(qsizetype bytes);
    [[nodiscard]] size_t count() const { return m_entries.size(); }
    void append(const Record &record);
    void removeFirst() { m_entries.pop_front(); }
    /// Removes the entry made of this very object, if there is one.
    void remove(const Record &record);
    /// Removes entries whose timestamp is before the limit. One whose timestamp cannot be read stays.
    void removeOlderThan(const QDateTime &limit);

    [[nodiscard]] WXLAppRepository &repository() const { return m_repository; }
    [[nodiscard]] const QString &key() const { return m_key; }
    [[nodiscard]] SerialQueue &workingQueue() { return m_strand; }

private:
    struct Entry {
        std::weak_ptr<const WXLBlackBoxObject> record; ///< tells which object it was made of
        std::optional<QString> timestamp;
        std::optional<KeyedArchiver::Element> archived; ///< nothing: it could not be archived

        [[nodiscard]] qsizetype bytes() const { return archived ? archived->bytes.size() : 0; }
    };

    PersistedHistory(WXLAppRepository &repository, QString key, QString owner, QString strand);
    void load();
    void save();
    [[nodiscard]] qsizetype bytes() const;
    [[nodiscard]] std::optional<QByteArray> archivedData() const;

    WXLAppRepository &m_repository;
    const QString m_key;
    const QString m_owner;
    SerialQueue m_strand;
    std::deque<Entry> m_entries;
    bool m_savePending = false;
    std::mutex m_mutex; // guards `m_closed`, and is held while the store is written
    bool m_closed = false;
};

} // namespace wexel

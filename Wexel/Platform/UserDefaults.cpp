#include "Platform/UserDefaults.h"

#include <mutex>

#include "Platform/Log.h"
#include "Platform/StoreFile.h"

namespace wexel {

namespace {

/// Keeps what is not yet in the file. A value that could not be written stays here, readable, until a write
/// succeeds.
class FileUserDefaults final : public UserDefaults, public std::enable_shared_from_this<FileUserDefaults>
{
public:
    FileUserDefaults(const QString &path, RunLater runLater)
        : m_path(path)
        , m_runLater(std::move(runLater))
        , m_file(path)
    {
    }
    ~FileUserDefaults() override { flush(); }
    FileUserDefaults(const FileUserDefaults &) = delete;
    FileUserDefaults &operator=(const FileUserDefaults &) = delete;

    [[nodiscard]] QVariant objectForKey(const QString &key) const override;
    [[nodiscard]] std::optional<QByteArray> dataForKey(const QString &key) const override;
    void setObject(const QVariant &value, const QString &key) override;
    void removeObjectForKey(const QString &key) override;
    void synchronize() override { flush(); }

private:
    struct Pending {
        std::optional<StoredValue> value; ///< nothing: the entry is to be removed
        quint64 revision = 0;
    };

    [[nodiscard]] std::optional<StoredValue> storedValue(const QString &key) const;
    void gather(const QString &key, std::optional<StoredValue> value);
    void scheduleFlush();
    void flush();
    [[nodiscard]] QMap<QString, Pending> pending() const;
    void forget(const QMap<QString, Pending> &written);
    void report(const std::optional<QString> &problem);

    const QString m_path;
    const RunLater m_runLater;

    // Where both are needed, m_fileMutex is locked first.
    mutable std::mutex m_fileMutex; ///< guards m_file and m_failing; held while the disk is used
    mutable StoreFile m_file;
    bool m_failing = false;
    mutable std::mutex m_mutex; ///< guards what follows; held for moments only
    QMap<QString, Pending> m_pending;
    quint64 m_lastRevision = 0;
    bool m_flushScheduled = false;
};

QVariant FileUserDefaults::objectForKey(const QString &key) const
{
    const std::optional<StoredValue> value = storedValue(key);
    return value ? value->toVariant() : QVariant();
}

std::optional<QByteArray> FileUserDefaults::dataForKey(const QString &key) const
{
    const QVariant value = objectForKey(key);
    return value.typeId() == QMetaType::QByteArray ? std::optional(value.toByteArray()) : std::nullopt;
}

std::optional<StoredValue> FileUserDefaults::storedValue(const QString &key) const
{
    {
        const std::scoped_lock lock(m_mutex);
        const auto found = m_pending.constFind(key);
        if (found != m_pending.cend())
            return found->value;
    }
    const std::scoped_lock lock(m_fileMutex);
    return m_file.read(key);
}

void FileUserDefaults::setObject(const QVariant &value, const QString &key)
{
    if (!value.isValid())
        return removeObjectForKey(key);
    const std::optional<StoredValue> stored = StoredValue::fromVariant(value);
    if (!stored)
        return log(QStringLiteral(
                       "UserDefaults - cannot store a value of type %1 under %2: not a property-list value")
                       .arg(QLatin1String(value.typeName()), key));
    gather(key, stored);
    if (stored->kind == StoredValue::Bytes)
        scheduleFlush();
    else
        flush();
}

void FileUserDefaults::removeObjectForKey(const QString &key)
{
    gather(key, std::nullopt);
    flush();
}

void FileUserDefaults::gather(const QString &key, std::optional<StoredValue> value)
{
    const std::scoped_lock lock(m_mutex);
    m_pending.insert(key, Pending{std::move(value), ++m_lastRevision});
}

void FileUserDefaults::scheduleFlush()
{
    {
        const std::scoped_lock lock(m_mutex);
        if (std::exchange(m_flushScheduled, true))
            return;
    }
    m_runLater(flushInterval, [weak = weak_from_this()] {
        const auto self = weak.lock();
        if (!self)
            return;
        {
            const std::scoped_lock lock(self->m_mutex);
            self->m_flushScheduled = false;
        }
        self->flush();
    });
}

void FileUserDefaults::flush()
{
    const std::scoped_lock lock(m_fileMutex);
    const QMap<QString, Pending> gathered = pending();
    if (gathered.isEmpty())
        return;
    StoreChanges changes;
    for (auto entry = gathered.cbegin(); entry != gathered.cend(); ++entry)
        changes.insert(entry.key(), entry->value);
    const std::optional<QString> problem = m_file.write(changes);
    report(problem);
    if (!problem)
        forget(gathered);
}

QMap<QString, FileUserDefaults::Pending> FileUserDefaults::pending() const
{
    const std::scoped_lock lock(m_mutex);
    return m_pending;
}

// What was set again while it was being written stays.
void FileUserDefaults::forget(const QMap<QString, Pending> &written)
{
    const std::scoped_lock lock(m_mutex);
    for (auto entry = written.cbegin(); entry != written.cend(); ++entry) {
        const auto current = m_pending.constFind(entry.key());
        if (current != m_pending.cend() && current->revision == entry->revision)
            m_pending.erase(current);
    }
}

void FileUserDefaults::report(const std::optional<QString> &problem)
{
    if (problem && !m_failing)
        log(QStringLiteral(
                "UserDefaults - cannot write %1: %2. Values are kept in memory until a write succeeds")
                .arg(m_path, *problem));
    m_failing = problem.has_value();
}

} // namespace

std::shared_ptr<UserDefaults> makeUserDefaults(const QString &path, RunLater runLater)
{
    return std::make_shared<FileUserDefaults>(path, std::move(runLater));
}

} // namespace wexel

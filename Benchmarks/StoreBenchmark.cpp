// Replays ten minutes of full black-box histories against the candidates for the store, as fast as it can,
// and prints what one second of recording costs: CPU time, bytes written to the disk, and the time that a
// write takes.
//
//     StoreBenchmark FOLDER        FOLDER must be on a disk, not in memory
//
// The kernel counts a page once, however often it is written before it goes to the disk; so the file system
// is synced after each 30 simulated seconds, the age at which Linux writes a page by itself.

#include <cstdio>
#include <functional>
#include <memory>

#include <fcntl.h>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSaveFile>

#include <lmdb.h>
#include <sqlite3.h>

#include "Business/SampleRecords.h"
#include "Platform/UserDefaults.h"

using namespace wexel;

namespace {

constexpr int simulatedSeconds = 600;
using Batch = QMap<QString, QByteArray>;

/// A way to keep values in files. Throws on failure.
class Candidate
{
public:
    virtual ~Candidate() = default;
    virtual void write(const Batch &batch) = 0;
};

void require(bool condition, const char *what)
{
    if (!condition)
        throw std::runtime_error(what);
}

class SqliteCandidate final : public Candidate
{
public:
    SqliteCandidate(const QString &folder, int pageSize, int checkpointPages)
    {
        require(sqlite3_open((folder + QStringLiteral("/store")).toUtf8().constData(), &m_db) == SQLITE_OK,
                "open");
        run(QStringLiteral("PRAGMA page_size=%1").arg(pageSize));
        run(QStringLiteral("PRAGMA journal_mode=WAL"));
        run(QStringLiteral("PRAGMA synchronous=NORMAL"));
        run(QStringLiteral("PRAGMA wal_autocheckpoint=%1").arg(checkpointPages));
        run(QStringLiteral("CREATE TABLE entries (key TEXT PRIMARY KEY, value BLOB NOT NULL)"));
        sqlite3_prepare_v2(m_db, "REPLACE INTO entries VALUES (?, ?)", -1, &m_insert, nullptr);
    }
    ~SqliteCandidate() override
    {
        sqlite3_finalize(m_insert);
        sqlite3_close(m_db);
    }
    SqliteCandidate(const SqliteCandidate &) = delete;
    SqliteCandidate &operator=(const SqliteCandidate &) = delete;

    void write(const Batch &batch) override
    {
        run(QStringLiteral("BEGIN"));
        for (auto entry = batch.cbegin(); entry != batch.cend(); ++entry) {
            const QByteArray key = entry.key().toUtf8();
            sqlite3_bind_text(m_insert, 1, key.constData(), int(key.size()), SQLITE_TRANSIENT);
            sqlite3_bind_blob(m_insert, 2, entry->constData(), int(entry->size()), SQLITE_TRANSIENT);
            require(sqlite3_step(m_insert) == SQLITE_DONE, "insert");
            sqlite3_reset(m_insert);
        }
        run(QStringLiteral("COMMIT"));
    }

private:
    void run(const QString &sql)
    {
        require(sqlite3_exec(m_db, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK, "sql");
    }

    sqlite3 *m_db = nullptr;
    sqlite3_stmt *m_insert = nullptr;
};

class LmdbCandidate final : public Candidate
{
public:
    explicit LmdbCandidate(const QString &folder)
    {
        require(mdb_env_create(&m_env) == 0, "create");
        require(mdb_env_set_mapsize(m_env, 64 << 20) == 0, "size");
        require(mdb_env_open(m_env, folder.toUtf8().constData(), MDB_NOMETASYNC, 0600) == 0, "open");
    }
    ~LmdbCandidate() override { mdb_env_close(m_env); }
    LmdbCandidate(const LmdbCandidate &) = delete;
    LmdbCandidate &operator=(const LmdbCandidate &) = delete;

    void write(const Batch &batch) override
    {
        MDB_txn *transaction = nullptr;
        MDB_dbi database = 0;
        require(mdb_txn_begin(m_env, nullptr, 0, &transaction) == 0, "begin");
        require(mdb_dbi_open(transaction, nullptr, 0, &database) == 0, "database");
        for (auto entry = batch.cbegin(); entry != batch.cend(); ++entry) {
            QByteArray key = entry.key().toUtf8();
            QByteArray bytes = *entry;
            MDB_val keyValue{size_t(key.size()), key.data()};
            MDB_val value{size_t(bytes.size()), bytes.data()};
            require(mdb_put(transaction, database, &keyValue, &value, 0) == 0, "put");
        }
        require(mdb_txn_commit(transaction) == 0, "commit");
    }

private:
    MDB_env *m_env = nullptr;
};

class FilePerKeyCandidate final : public Candidate
{
public:
    explicit FilePerKeyCandidate(QString folder) : m_folder(std::move(folder)) { }
    void write(const Batch &batch) override
    {
        for (auto entry = batch.cbegin(); entry != batch.cend(); ++entry) {
            QSaveFile file(m_folder + QLatin1Char('/') + entry.key());
            require(file.open(QIODevice::WriteOnly), "open");
            file.write(*entry);
            require(file.commit(), "commit");
        }
    }

private:
    QString m_folder;
};

class OneFileCandidate final : public Candidate
{
public:
    explicit OneFileCandidate(const QString &folder) : m_path(folder + QStringLiteral("/store")) { }
    void write(const Batch &batch) override
    {
        m_values.insert(batch);
        QSaveFile file(m_path);
        require(file.open(QIODevice::WriteOnly), "open");
        QDataStream stream(&file);
        stream << m_values;
        require(file.commit(), "commit");
    }

private:
    QString m_path;
    Batch m_values;
};

/// The store as it is shipped, driven by simulated time.
class ShippedCandidate final : public Candidate
{
public:
    explicit ShippedCandidate(const QString &folder)
        : m_defaults(
            makeUserDefaults(folder + QStringLiteral("/store"),
                             [this](auto, std::function<void()> block) { m_later = std::move(block); }))
    {
    }
    void write(const Batch &batch) override
    {
        for (auto entry = batch.cbegin(); entry != batch.cend(); ++entry)
            m_defaults->setObject(*entry, entry.key());
        if (m_later)
            std::exchange(m_later, nullptr)();
    }

private:
    std::function<void()> m_later;
    std::shared_ptr<UserDefaults> m_defaults;
};

/// One full history that moves on by one sample at a time.
class History
{
public:
    History(QString key, int capacity, int periodMilliseconds)
        : m_key(std::move(key))
        , m_capacity(capacity)
        , m_period(periodMilliseconds)
    {
        for (int i = 0; i < capacity; ++i)
            push();
    }
    void push()
    {
        m_now = m_now.addMSecs(m_period);
        const QString value = QString::number(
            100.0 + static_cast<double>(m_now.toMSecsSinceEpoch() * 7919 % 25013) / 1000.0, 'f', 3);
        const QString time = m_now.toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss.zzz+02:00"));
        if (m_records.size() == m_capacity)
            m_records.removeFirst();
        m_records.append(QVariant::fromValue<ArchivedObject>(std::make_shared<Record>(value, time)));
    }
    void archiveInto(Batch &batch) const
    {
        batch.insert(m_key, *KeyedArchiver::archivedDataWithRootObject(m_records));
    }

private:
    QString m_key;
    int m_capacity;
    int m_period;
    QDateTime m_now = QDateTime(QDate(2024, 3, 7), QTime(14, 5, 9, 123), Qt::UTC);
    QVariantList m_records;
};

double cpuMilliseconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto milliseconds = [](const timeval &t) {
        return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

qint64 bytesWritten()
{
    QFile file(QStringLiteral("/proc/self/io"));
    require(file.open(QIODevice::ReadOnly), "/proc/self/io");
    const QByteArray text = "\n" + file.readAll();
    const QByteArray name = "\nwrite_bytes: ";
    const qsizetype start = text.indexOf(name) + name.size();
    return text.mid(start, text.indexOf('\n', start) - start).toLongLong();
}

using Make = std::function<std::unique_ptr<Candidate>(const QString &folder)>;

/// Every half second three histories change, every two seconds two more; every second they are written.
void measure(const char *name, const QString &parent, bool compressed, const Make &make)
{
    const QDir folder(parent + QStringLiteral("/store-benchmark"));
    QDir(folder).removeRecursively();
    QDir().mkpath(folder.path());
    std::vector<History> fast;
    for (const char *key : {"cpuHistoryKey", "memoryUsedByAppHistoryKey", "memoryUsedByDeviceHistoryKey"})
        fast.emplace_back(QLatin1String(key), 120, 500);
    std::vector<History> slow{History(QStringLiteral("networkHistoryKey"), 30, 2000),
                              History(QStringLiteral("orientationHistoryKey"), 30, 2000)};
    const std::unique_ptr<Candidate> candidate = make ? make(folder.path()) : nullptr;
    const int directory = open(folder.path().toUtf8().constData(), O_RDONLY | O_DIRECTORY);
    syncfs(directory);
    const double cpuBefore = cpuMilliseconds();
    double waited = 0;
    const qint64 bytesBefore = bytesWritten();
    Batch batch;
    for (int halfSecond = 1; halfSecond <= 2 * simulatedSeconds; ++halfSecond) {
        for (History &history : fast) {
            history.push();
            history.archiveInto(batch);
        }
        for (History &history : slow) {
            if (halfSecond % 4 == 0) {
                history.push();
                history.archiveInto(batch);
            }
        }
        if (halfSecond % 2 == 0) {
            for (QByteArray &bytes : batch) {
                if (compressed)
                    bytes = qCompress(bytes, 1);
            }
            QElapsedTimer timer;
            timer.start();
            if (candidate)
                candidate->write(batch);
            waited += double(timer.nsecsElapsed()) / 1e6;
            batch.clear();
        }
        if (halfSecond % 60 == 0)
            syncfs(directory);
    }
    close(directory);
    std::printf("%-44s %8.3f ms CPU %8.2f KB written %8.3f ms in the call\n", name,
                (cpuMilliseconds() - cpuBefore) / simulatedSeconds,
                double(bytesWritten() - bytesBefore) / 1024 / simulatedSeconds, waited / simulatedSeconds);
    std::fflush(stdout);
    QDir(folder).removeRecursively();
}

} // namespace

int main(int argc, char **argv) // NOLINT(bugprone-exception-escape): it may as well end
{
    const QCoreApplication application(argc, argv);
    // Compression's work memory, given back to the system and taken again each time, would blur the comparison.
    mallopt(M_TRIM_THRESHOLD, 64 << 20); // NOLINT(concurrency-mt-unsafe): no other thread runs yet
    if (argc != 2) {
        std::fprintf(stderr, "usage: StoreBenchmark FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const auto sqlite = [](int pageSize, int checkpointPages) {
        return [=](const QString &path) {
            return std::make_unique<SqliteCandidate>(path, pageSize, checkpointPages);
        };
    };
    measure("nothing (records and archives only)", folder, false, nullptr);
    measure("nothing, compressed", folder, true, nullptr);
    measure("SQLite 4096, plain", folder, false, sqlite(4096, 1000));
    measure("SQLite 4096, compressed", folder, true, sqlite(4096, 1000));
    measure("SQLite 1024, compressed, checkpoint 1000", folder, true, sqlite(1024, 1000));
    measure("SQLite 1024, compressed, checkpoint 2000", folder, true, sqlite(1024, 2000));
    measure("SQLite 512, compressed, checkpoint 1000", folder, true, sqlite(512, 1000));
    measure("SQLite 512, compressed, checkpoint 2000", folder, true, sqlite(512, 2000));
    const auto lmdb = [](const QString &path) { return std::make_unique<LmdbCandidate>(path); };
    measure("LMDB, plain", folder, false, lmdb);
    measure("LMDB, compressed", folder, true, lmdb);
    measure("one file a key, plain", folder, false,
            [](const QString &path) { return std::make_unique<FilePerKeyCandidate>(path); });
    measure("one file a key, compressed", folder, true,
            [](const QString &path) { return std::make_unique<FilePerKeyCandidate>(path); });
    measure("one file for all, plain", folder, false,
            [](const QString &path) { return std::make_unique<OneFileCandidate>(path); });
    measure("one file for all, compressed", folder, true,
            [](const QString &path) { return std::make_unique<OneFileCandidate>(path); });
    measure("the store as shipped", folder, false,
            [](const QString &path) { return std::make_unique<ShippedCandidate>(path); });
    return 0;
}

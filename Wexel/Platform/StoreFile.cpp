#include "Platform/StoreFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include "Platform/Log.h"

namespace wexel {

namespace {

constexpr auto applicationId = "1465404499"; // "WXLS"
constexpr auto formatVersion = "2";

// Docs/store.md has the figures behind these settings. A new store has nothing to lose to a power cut, so making it
// does not wait for the disk.
constexpr auto beforeCreation = "PRAGMA synchronous = OFF;"
                                "PRAGMA page_size = 1024;"
                                "PRAGMA journal_mode = WAL;"
                                "BEGIN IMMEDIATE";
constexpr auto afterCreation = "PRAGMA application_id = 1465404499;"
                               "PRAGMA user_version = 2;"
                               "COMMIT;"
                               "PRAGMA synchronous = NORMAL";

} // namespace

StoreFile::StoreFile(QString path) : m_path(std::move(path)) { }

std::optional<StoredValue> StoreFile::read(const QString &key)
{
    if (!ensureOpen())
        return std::nullopt;
    std::optional<StoredValue> value = StoreTable(m_database).read(key);
    if (m_database.foundDamage())
        m_database.close(); // the next use looks closer
    return value;
}

std::optional<QString> StoreFile::write(const StoreChanges &changes)
{
    if (m_database.isReadOnly())
        m_database.close(); // the disk may have become writable
    // A second attempt, because the first may be what finds the file damaged.
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!ensureOpen())
            return m_problem;
        if (writeAll(changes))
            return std::nullopt;
        if (failure() != State::Damaged) {
            m_database.rollBack();
            break;
        }
        m_database.close();
    }
    return m_problem;
}

bool StoreFile::writeAll(const StoreChanges &changes)
{
    return m_database.execute("BEGIN IMMEDIATE") && StoreTable(m_database).write(changes)
        && m_database.execute("COMMIT");
}

bool StoreFile::ensureOpen()
{
    if (m_database.isOpen() && m_database.hasMoved())
        m_database.abandon();
    if (m_database.isOpen())
        return true;
    State state = open();
    if (state == State::Damaged)
        state = startAfresh();
    if (state != State::Ready)
        m_database.close();
    return state == State::Ready;
}

StoreFile::State StoreFile::open()
{
    makeRoom();
    if (!m_database.open(m_path, SqliteDatabase::Mode::ReadWrite))
        return failure();
    State state = check();
    // Write-ahead logging needs files of its own; where none can be written there is still the database to read.
    if (state == State::Unusable && m_database.foundUnwritable()) {
        const QString problem = m_problem;
        const bool readable
            = m_database.open(m_path, SqliteDatabase::Mode::ReadUnchanging) && check() == State::Ready;
        state = readable ? State::Ready : State::Unusable;
        m_problem = problem;
    }
    return state;
}

StoreFile::State StoreFile::check()
{
    const auto id = m_database.firstValue("PRAGMA application_id");
    const auto version = m_database.firstValue("PRAGMA user_version");
    const auto tables = m_database.firstValue("SELECT count(*) FROM sqlite_master");
    if (!id || !version || !tables)
        return failure();
    if (*tables == "0")
        return createTable();
    if (*id != applicationId || *version != formatVersion)
        return damage(QStringLiteral("a database of another application or version"));
    const auto verdict = m_database.firstValue("PRAGMA quick_check(1)");
    if (!verdict)
        return failure();
    if (*verdict != "ok")
        return damage(QString::fromUtf8(*verdict).simplified());
    return m_database.execute("PRAGMA synchronous = NORMAL") ? State::Ready : failure();
}

StoreFile::State StoreFile::createTable()
{
    return m_database.execute(beforeCreation) && m_database.execute(StoreTable::creation)
            && m_database.execute(afterCreation)
        ? State::Ready
        : failure();
}

// The lock keeps two processes from moving each other's new store aside.
StoreFile::State StoreFile::startAfresh()
{
    m_database.close();
    QLockFile lock(m_path + QStringLiteral(".lock"));
    if (!lock.tryLock(1000)) {
        m_problem += QStringLiteral("; cannot lock it to move it aside");
        return State::Unusable;
    }
    const State state = open();
    if (state != State::Damaged)
        return state;
    m_database.close();
    if (!moveAside()) {
        m_problem += QStringLiteral("; cannot move it aside");
        return State::Unusable;
    }
    log(QStringLiteral("UserDefaults - %1 is damaged: %2. It is now %1.damaged, a new store is started")
            .arg(m_path, m_problem));
    return open();
}

bool StoreFile::moveAside() const
{
    const QString aside = m_path + QStringLiteral(".damaged");
    for (const QString &suffix : {QStringLiteral("-wal"), QString()}) {
        QFile::remove(aside + suffix);
        QFile::rename(m_path + suffix, aside + suffix);
    }
    QFile::remove(m_path + QStringLiteral("-shm"));
    return !QFileInfo::exists(m_path);
}

StoreFile::State StoreFile::failure()
{
    m_problem = m_database.errorText();
    return m_database.foundDamage() ? State::Damaged : State::Unusable;
}

StoreFile::State StoreFile::damage(const QString &reason)
{
    m_problem = reason;
    return State::Damaged;
}

// The store holds an e-mail address, so other users have no business in it; SQLite's other files follow its
// mode.
void StoreFile::makeRoom() const
{
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    QFile file(m_path);
    if (!file.exists() && file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace wexel

#include "Storage/PostgresDatabase.h"

#include "Storage/DatabaseAddress.h"
#include "Storage/Migrations.h"
#include "Storage/StorageError.h"

#include <Poco/Data/PostgreSQL/Connector.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <random>
#include <thread>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::Session;

namespace {

constexpr std::size_t mostSessions = 16;
constexpr int mostAttempts = 10;
/// Any number that other programs' locks do not have.
const std::string migrationLock = "7737391";

bool hasState(const Poco::Exception &error, std::string_view state)
{
    return error.message().find(" State: " + std::string(state)) != std::string::npos;
}

/// Lost against another transaction: a serialization failure, a deadlock, or a row that the other has just added or
/// deleted. What stands in its way is seen by the next attempt.
bool isLostRace(const Poco::Exception &error)
{
    constexpr std::array<std::string_view, 4> states = {"40001", "40P01", "23505", "23503"};
    return std::any_of(states.begin(), states.end(),
                       [&](std::string_view state) { return hasState(error, state); });
}

/// The server's own message, or the client library's, in one line and without what the layer between puts around it.
std::string postgresReason(const Poco::Exception &error)
{
    std::string text = error.message().substr(0, error.message().find(" Severity: "));
    for (const std::string_view wrapping :
         {"Connection Error: ", "postgresql_stmt_prepare error: ", "postgresql_stmt_execute error: "}) {
        if (const std::size_t found = text.find(wrapping); found != text.npos)
            text.erase(0, found + wrapping.size());
    }
    std::string line;
    for (const char c : text) {
        const bool isBlank = c == ' ' || c == '\n' || c == '\t';
        if (c == '\n')
            line += ';';
        if (!isBlank || !(line.empty() || line.ends_with(' ')))
            line += isBlank ? ' ' : c;
    }
    line.erase(line.find_last_not_of(" ;") + 1);
    return line.empty() ? error.displayText() : line;
}

[[noreturn]] void failDatabase(const Poco::Exception &error)
{
    const bool isFull = hasState(error, "53100");
    throw StorageError(isFull ? StorageError::Kind::Full : StorageError::Kind::Failed, postgresReason(error));
}

Session open(const std::string &options)
{
    static const bool registered = (Poco::Data::PostgreSQL::Connector::registerConnector(), true);
    (void)registered;
    Session session(Poco::Data::PostgreSQL::Connector::KEY, options);
    // Its remarks would go to the standard error output.
    session << "SET client_min_messages = error", now;
    session << "SET client_encoding = 'UTF8'", now;
    session << "SET synchronous_commit = on", now;
    session << "SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL READ COMMITTED", now;
    return session;
}

Session openToServe(const std::string &options, const DatabasePatience &patience)
{
    Session session = open(options);
    session << "SET lock_timeout = " + std::to_string(patience.lock.count()), now;
    session << "SET statement_timeout = " + std::to_string(patience.statement.count()), now;
    return session;
}

/// The first words to a session that lay idle tell whether it is still connected.
void begin(SessionPool::Loan &loan, const std::string &opening)
{
    try {
        loan.session().begin();
    } catch (const Poco::Exception &) {
        if (loan.session().isConnected())
            throw;
        loan.renew();
        loan.session().begin();
    }
    if (!opening.empty())
        loan.session() << opening, now;
}

void rollBack(Session &session)
{
    try {
        session.rollback();
    } catch (const Poco::Exception &) { // The connection is lost, and the transaction with it.
    }
}

/// False if it lost a race and may try again, unless it is the last time.
bool attempt(SessionPool &pool, const std::string &opening, const Database::Work &work, bool isLast)
{
    SessionPool::Loan loan(pool);
    begin(loan, opening);
    try {
        work(loan.session());
        loan.session().commit();
        return true;
    } catch (const Poco::Exception &error) {
        rollBack(loan.session());
        if (isLast || !isLostRace(error))
            throw;
        return false;
    } catch (...) {
        rollBack(loan.session());
        throw;
    }
}

/// Those who lost to each other once do not meet again.
void pauseBeforeAttempt(int number)
{
    thread_local std::minstd_rand random(std::random_device{}());
    std::uniform_int_distribution<int> milliseconds(0, 5 << number);
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(random)));
}

} // namespace

PostgresDatabase::PostgresDatabase(const std::string &address, Mode mode, DatabasePatience patience)
    : m_pool(
        [=, options = connectionOptions(address)] {
            return mode == Mode::Serve ? openToServe(options, patience) : open(options);
        },
        mostSessions, patience.session)
    , m_isReadOnly(mode == Mode::Read)
{
    named(databaseName(address), [&] { prepare(mode); });
}

void PostgresDatabase::prepare(Mode mode)
{
    if (mode == Mode::Write || mode == Mode::Read) {
        PostgresDatabase::read([](Session &session) { checkSchema(session, Dialect::PostgreSql); });
        return;
    }
    PostgresDatabase::write([mode](Session &session) {
        // Others may be at it, and many reports take their time.
        session << "SET LOCAL lock_timeout = 0", now;
        session << "SET LOCAL statement_timeout = 0", now;
        session << "SELECT pg_advisory_xact_lock(" + migrationLock + ")", now;
        mode == Mode::Serve ? migrate(session, Dialect::PostgreSql)
                            : fillSchema(session, Dialect::PostgreSql);
    });
}

void PostgresDatabase::write(const Work &work)
{
    run(m_isReadOnly ? "SET TRANSACTION READ ONLY" : "", work, mostAttempts);
}

void PostgresDatabase::read(const Work &work)
{
    run("", work, mostAttempts);
}

void PostgresDatabase::readSnapshot(const Work &work)
{
    run("SET TRANSACTION ISOLATION LEVEL REPEATABLE READ READ ONLY", work, 1);
}

void PostgresDatabase::run(const std::string &opening, const Work &work, int attempts)
{
    try {
        for (int number = 1; !attempt(m_pool, opening, work, number == attempts); ++number)
            pauseBeforeAttempt(std::min(number, 6));
    } catch (const Poco::Exception &error) {
        failDatabase(error);
    }
}

} // namespace wexel::receiver

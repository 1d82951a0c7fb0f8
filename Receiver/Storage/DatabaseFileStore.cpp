#include "Storage/DatabaseFileStore.h"

#include "Storage/StorageError.h"

#include <Poco/Data/LOB.h>

#include <algorithm>

namespace wexel::receiver {

using namespace Poco::Data::Keywords;
using Poco::Data::BLOB;
using Poco::Data::Session;

namespace {

constexpr std::size_t pieceSize = 256 * 1024;

class IncomingDatabaseFile : public IncomingFile
{
public:
    IncomingDatabaseFile(Database &database, FileStore &store, std::string location)
        : m_database(database)
        , m_store(store)
        , m_location(std::move(location))
    {
    }

    ~IncomingDatabaseFile() override
    {
        if (m_isPublished || m_position == 0)
            return;
        try {
            m_store.remove(m_location);
        } catch (const StorageError &) { // The sweep finds it.
        }
    }

private:
    void append(std::string_view bytes) override
    {
        while (!bytes.empty()) {
            const std::string_view some = bytes.substr(0, pieceSize - m_piece.size());
            m_piece += some;
            bytes.remove_prefix(some.size());
            if (m_piece.size() == pieceSize)
                store();
        }
    }

    void finish() override
    {
        if (!m_piece.empty())
            store();
        m_isPublished = true;
    }

    void store()
    {
        const BLOB piece(reinterpret_cast<const unsigned char *>(m_piece.data()), m_piece.size());
        m_database.write([&](Session &session) {
            // What is committed later and waits for the disk, as the file's row does, has the disk take this before.
            session << "SET LOCAL synchronous_commit = off", now;
            session << "INSERT INTO file_chunks (location, position, stored, bytes) VALUES ($1, $2, $3, $4)",
                bind(m_location), bind(m_position), bind(currentMilliseconds()), bind(piece), now;
        });
        ++m_position;
        m_piece.clear();
    }

    Database &m_database;
    FileStore &m_store;
    std::string m_location;
    std::string m_piece; ///< what is not stored yet
    std::int64_t m_position = 0; ///< of the next piece
    bool m_isPublished = false;
};

/// The pieces, one after the other.
class PieceBuffer : public std::streambuf
{
public:
    PieceBuffer(Database &database, std::string location)
        : m_database(database)
        , m_location(std::move(location))
    {
    }

private:
    int_type underflow() override
    {
        std::vector<BLOB> found;
        m_database.read([&](Session &session) {
            found.clear();
            session << "SELECT bytes FROM file_chunks WHERE location = $1 AND position = $2",
                bind(m_location), bind(m_position), into(found), now;
        });
        if (found.empty())
            return traits_type::eof();
        ++m_position;
        m_piece.assign(found.front().begin(), found.front().end());
        setg(m_piece.data(), m_piece.data(), m_piece.data() + m_piece.size());
        return traits_type::to_int_type(m_piece.front());
    }

    Database &m_database;
    std::string m_location;
    std::int64_t m_position = 0; ///< of the next piece
    std::string m_piece;
};

class PieceStream : public std::istream
{
public:
    PieceStream(Database &database, const std::string &location)
        : std::istream(nullptr)
        , m_buffer(database, location)
    {
        rdbuf(&m_buffer);
        exceptions(std::ios::badbit); // lets the buffer's exceptions through
    }

private:
    PieceBuffer m_buffer;
};

} // namespace

std::unique_ptr<IncomingFile> DatabaseFileStore::receive(const std::string &location)
{
    return std::make_unique<IncomingDatabaseFile>(m_database, *this, location);
}

std::unique_ptr<std::istream> DatabaseFileStore::open(const std::string &location, std::uint64_t size) const
{
    std::int64_t stored = 0;
    m_database.read([&](Session &session) {
        session << "SELECT coalesce(sum(octet_length(bytes)), 0) FROM file_chunks WHERE location = $1",
            bind(location), into(stored), now;
    });
    const bool isWhole = stored == static_cast<std::int64_t>(size);
    return isWhole ? std::make_unique<PieceStream>(m_database, location) : nullptr;
}

void DatabaseFileStore::remove(const std::string &location)
{
    m_database.write([&](Session &session) {
        session << "DELETE FROM file_chunks WHERE location = $1", bind(location), now;
    });
}

std::size_t DatabaseFileStore::sweep(std::int64_t before, const UnknownAmong &unknownAmong)
{
    std::vector<std::string> older;
    m_database.read([&](Session &session) {
        older.clear();
        session
            << "SELECT location FROM file_chunks WHERE NOT EXISTS (SELECT 1 FROM files WHERE files.location "
               "= file_chunks.location) GROUP BY location HAVING max(stored) < $1",
            bind(before), into(older), now;
    });
    const std::vector<std::string> unknown = unknownAmong(older);
    for (const std::string &location : unknown)
        remove(location);
    return unknown.size();
}

} // namespace wexel::receiver

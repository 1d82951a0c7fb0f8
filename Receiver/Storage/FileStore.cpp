#include "Storage/FileStore.h"

#include "Secrets.h"
#include "Storage/StorageError.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace wexel::receiver {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const std::string &what, int code)
{
    const bool full = code == ENOSPC || code == EDQUOT || code == EFBIG;
    throw StorageError(full ? StorageError::Kind::Full : StorageError::Kind::Failed,
                       what + ": " + std::generic_category().message(code));
}

void syncFolder(const fs::path &folder)
{
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool synced = descriptor >= 0 && ::fsync(descriptor) == 0;
    const int code = errno;
    if (descriptor >= 0)
        ::close(descriptor);
    if (!synced)
        fail("Can't sync the folder " + folder.string(), code);
}

void makeFolder(const fs::path &folder)
{
    std::error_code error;
    if (fs::create_directory(folder, error)) {
        fs::permissions(folder, fs::perms::owner_all, error);
        syncFolder(folder.parent_path());
    } else if (error) {
        fail("Can't make the folder " + folder.string(), error.value());
    }
}

} // namespace

FileStore::FileStore(const fs::path &data) : m_files(data / "files"), m_incoming(data / "incoming")
{
    makeFolder(m_files);
    makeFolder(m_incoming);
}

void FileStore::removeLeftovers() const
{
    for (const fs::directory_entry &entry : fs::directory_iterator(m_incoming))
        fs::remove(entry.path());
}

fs::path FileStore::pathOf(const std::string &sha256) const
{
    return m_files / sha256.substr(0, 2) / sha256.substr(2);
}

IncomingFile::IncomingFile(const FileStore &store)
    : m_store(store)
    , m_path(store.m_incoming / randomId())
    , m_descriptor(::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600))
    , m_digest("SHA256")
{
    if (m_descriptor < 0)
        fail("Can't create " + m_path.string(), errno);
}

IncomingFile::~IncomingFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    if (!m_path.empty())
        ::unlink(m_path.c_str());
}

void IncomingFile::write(std::string_view bytes)
{
    m_digest.update(bytes.data(), bytes.size());
    m_size += bytes.size();
    while (!bytes.empty()) {
        const ssize_t written = ::write(m_descriptor, bytes.data(), bytes.size());
        if (written >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            fail("Can't write " + m_path.string(), errno);
    }
}

std::string IncomingFile::publish()
{
    if (::fsync(m_descriptor) != 0)
        fail("Can't sync " + m_path.string(), errno);
    std::string sha256 = Poco::DigestEngine::digestToHex(m_digest.digest());
    const fs::path target = m_store.pathOf(sha256);
    makeFolder(target.parent_path());
    // The same content may be there already: replacing it by its equal is harmless and needs no lock.
    if (::rename(m_path.c_str(), target.c_str()) != 0)
        fail("Can't publish " + target.string(), errno);
    m_path.clear();
    syncFolder(target.parent_path());
    return sha256;
}

} // namespace wexel::receiver

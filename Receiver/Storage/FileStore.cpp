#include "Storage/FileStore.h"

#include "Secrets.h"
#include "Storage/Folders.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace wexel::receiver {

namespace fs = std::filesystem;

FileStore::FileStore(const fs::path &data)
    : m_data(data)
    , m_files(data / "files")
    , m_incoming(data / "incoming")
{
}

void FileStore::prepare() const
{
    makeFolder(m_files);
    makeFolder(m_incoming);
    // All of them now: whoever finds a folder that another upload has just made can't tell whether its entry is synced.
    const std::string digits = "0123456789abcdef";
    for (const char first : digits) {
        for (const char second : digits)
            makeFolder(m_files / std::string{first, second});
    }
    syncFolder(m_files);
    syncFolder(m_data);
    for (const fs::directory_entry &entry : fs::directory_iterator(m_incoming))
        fs::remove(entry.path());
}

std::size_t FileStore::removeAllBut(const std::set<std::string> &kept) const
{
    std::size_t count = 0;
    for (const fs::directory_entry &folder : fs::directory_iterator(m_files)) {
        for (const fs::directory_entry &entry : fs::directory_iterator(folder.path())) {
            const std::string sha256 = folder.path().filename().string() + entry.path().filename().string();
            count += !kept.contains(sha256) && fs::remove(entry.path()) ? 1 : 0;
        }
    }
    return count;
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
        failStorage("Can't create " + m_path.string(), errno);
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
            failStorage("Can't write " + m_path.string(), errno);
    }
}

std::string IncomingFile::publish()
{
    if (::fsync(m_descriptor) != 0)
        failStorage("Can't sync " + m_path.string(), errno);
    std::string sha256 = Poco::DigestEngine::digestToHex(m_digest.digest());
    const fs::path target = m_store.pathOf(sha256);
    // The same content may be there already: replacing it by its equal is harmless and needs no lock.
    if (::rename(m_path.c_str(), target.c_str()) != 0)
        failStorage("Can't publish " + target.string(), errno);
    m_path.clear();
    syncFolder(target.parent_path());
    return sha256;
}

} // namespace wexel::receiver

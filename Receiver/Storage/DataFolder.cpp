#include "Storage/DataFolder.h"

#include "Storage/Folders.h"
#include "Storage/Maintenance.h"
#include "Storage/StorageError.h"

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace wexel::receiver {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void refuse(const fs::path &folder, const std::string &why)
{
    throw StorageError(StorageError::Kind::Failed,
                       "The data folder " + folder.string() + " can't be used: " + why);
}

void create(const fs::path &folder)
{
    std::error_code error;
    const fs::path parent = fs::absolute(folder).parent_path();
    fs::create_directories(parent, error);
    if (::mkdir(folder.c_str(), 0700) == 0)
        syncFolder(parent);
    else if (errno != EEXIST)
        refuse(folder, std::generic_category().message(errno));
}

/// The lock goes with the process, however it ends.
int lock(const fs::path &folder)
{
    const fs::path file = folder / "lock";
    const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0)
        refuse(folder, std::generic_category().message(errno));
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return descriptor;
    ::close(descriptor);
    refuse(folder, "another wexel-receiver serves it");
}

int prepare(const fs::path &folder, DataFolder::Access access)
{
    if (access == DataFolder::Access::Serve) {
        create(folder);
        return lock(folder);
    }
    std::error_code error;
    if (!fs::exists(folder / "receiver.sqlite", error))
        refuse(folder, "no wexel-receiver has served it yet");
    return -1;
}

} // namespace

DataFolder::DataFolder(const fs::path &path, Access access)
    : m_lock(prepare(path, access))
    , m_files(path)
    , m_database(path / "receiver.sqlite",
                 access == Access::Read ? Database::Mode::Read : Database::Mode::Write)
    , m_reports(m_database, m_files)
    , m_tokens(m_database)
{
    if (access != Access::Serve)
        return;
    m_files.prepare();
    // Nothing is uploaded yet, so what has no row is not on its way to one.
    Maintenance(m_files, m_reports).sweep(currentMilliseconds(), std::numeric_limits<std::int64_t>::max());
}

DataFolder::~DataFolder()
{
    if (m_lock >= 0)
        ::close(m_lock);
}

} // namespace wexel::receiver

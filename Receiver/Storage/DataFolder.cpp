#include "Storage/DataFolder.h"

#include "Log.h"
#include "Storage/Folders.h"
#include "Storage/StorageError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace wexel::receiver {

namespace fs = std::filesystem;

namespace {

/// Milliseconds after which no report will come for a file: the library uploads a report's files each time that it sends it.
constexpr std::int64_t unreportedFileAge = std::int64_t(7) * 24 * 3600 * 1000;

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
    , m_reports(m_database)
    , m_tokens(m_database)
{
    if (access == Access::Serve)
        sweep();
}

/// Nothing is uploaded yet, so what has no row is not on its way to one.
void DataFolder::sweep()
{
    m_files.prepare();
    const std::size_t unreported = m_reports.removeUnreportedFiles(currentMilliseconds() - unreportedFileAge);
    const auto known = m_reports.fileContents();
    // A database that knows no file at all is more likely a new one that was put beside files still wanted.
    const std::size_t contents = known.empty() ? 0 : m_files.removeAllBut(known);
    logEvent("swept",
             {{"unreported_files", std::to_string(unreported)}, {"contents", std::to_string(contents)}});
}

DataFolder::~DataFolder()
{
    if (m_lock >= 0)
        ::close(m_lock);
}

} // namespace wexel::receiver

#include "Storage/Folders.h"

#include "Storage/StorageError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace wexel::receiver {

void failStorage(const std::string &what, int code)
{
    const bool full = code == ENOSPC || code == EDQUOT || code == EFBIG;
    throw StorageError(full ? StorageError::Kind::Full : StorageError::Kind::Failed,
                       what + ": " + std::generic_category().message(code));
}

void makeFolder(const std::filesystem::path &folder)
{
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
        failStorage("Can't make the folder " + folder.string(), errno);
}

void syncFolder(const std::filesystem::path &folder)
{
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool synced = descriptor >= 0 && ::fsync(descriptor) == 0;
    const int code = errno;
    if (descriptor >= 0)
        ::close(descriptor);
    if (!synced)
        failStorage("Can't sync the folder " + folder.string(), code);
}

} // namespace wexel::receiver

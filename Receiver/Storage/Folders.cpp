#include "Storage/Folders.h"

#include "Storage/StorageError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace wexel::receiver {

Descriptor::~Descriptor()
{
    if (isOpen())
        ::close(m_number);
}

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
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen() || ::fsync(descriptor.number()) != 0)
        failStorage("Can't sync the folder " + folder.string(), errno);
}

} // namespace wexel::receiver

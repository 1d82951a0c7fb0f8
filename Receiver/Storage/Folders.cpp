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

namespace {

/// Nobody but root can give, and needs to.
bool giveToOwnerOf(const std::filesystem::path &folder, const Descriptor &made)
{
    if (::geteuid() != 0)
        return true;
    struct stat owned = {};
    struct stat own = {};
    if (::stat(folder.c_str(), &owned) != 0 || ::fstat(made.number(), &own) != 0)
        return false;
    // Where root's files become another's by themselves, as on a network's folder, root can't give them away.
    const bool isRoots = own.st_uid == 0;
    return !isRoots || owned.st_uid == 0 || ::fchown(made.number(), owned.st_uid, owned.st_gid) == 0;
}

std::filesystem::path folderOf(const std::filesystem::path &path)
{
    return path.has_parent_path() ? path.parent_path() : ".";
}

Descriptor makeFile(const std::filesystem::path &file, int flags)
{
    Descriptor made(::open(file.c_str(), flags | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (made.isOpen() && !giveToOwnerOf(folderOf(file), made))
        return Descriptor();
    return made;
}

} // namespace

Descriptor makeFile(const std::filesystem::path &file)
{
    return makeFile(file, O_WRONLY);
}

Descriptor openOrMakeFile(const std::filesystem::path &file, int flags)
{
    Descriptor made = makeFile(file, flags);
    if (made.isOpen() || errno != EEXIST)
        return made;
    return Descriptor(::open(file.c_str(), flags | O_NOFOLLOW | O_CLOEXEC));
}

void makeFolder(const std::filesystem::path &folder)
{
    if (::mkdir(folder.c_str(), 0700) != 0) {
        if (errno == EEXIST)
            return;
        failStorage("Can't make the folder " + folder.string(), errno);
    }
    const Descriptor made(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!made.isOpen() || !giveToOwnerOf(folderOf(folder), made))
        failStorage("Can't give the folder " + folder.string() + " to the owner of its parent", errno);
}

void syncFolder(const std::filesystem::path &folder)
{
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen() || ::fsync(descriptor.number()) != 0)
        failStorage("Can't sync the folder " + folder.string(), errno);
}

} // namespace wexel::receiver

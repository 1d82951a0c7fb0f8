#include "Storage/FolderFileStore.h"

#include "BlockSize.h"
#include "Log.h"
#include "Secrets.h"
#include "Storage/Folders.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wexel::receiver {

namespace fs = std::filesystem;

namespace {

class IncomingFolderFile : public IncomingFile
{
public:
    IncomingFolderFile(fs::path temporary, fs::path target)
        : m_path(std::move(temporary))
        , m_target(std::move(target))
        , m_file(makeFile(m_path))
    {
        if (!m_file.isOpen())
            fail("create");
    }

    ~IncomingFolderFile() override
    {
        if (!m_path.empty())
            ::unlink(m_path.c_str());
    }

private:
    void append(std::string_view bytes) override
    {
        while (!bytes.empty()) {
            const ssize_t written = ::write(m_file.number(), bytes.data(), bytes.size());
            if (written >= 0)
                bytes.remove_prefix(static_cast<std::size_t>(written));
            else if (errno != EINTR)
                fail("write");
        }
    }

    void finish() override
    {
        if (::fsync(m_file.number()) != 0)
            fail("sync");
        if (::rename(m_path.c_str(), m_target.c_str()) != 0)
            fail("publish");
        m_path.clear();
        syncFolder(m_target.parent_path());
    }

    /// Without the file's name: it is the key to it, and this goes to the log.
    [[noreturn]] void fail(const char *what) const
    {
        const int code = errno;
        failStorage(std::string("Can't ") + what + " a file in " + m_path.parent_path().string(), code);
    }

    fs::path m_path; ///< empty once published
    fs::path m_target;
    Descriptor m_file;
};

/// Tells an end from an error, which a stream of the standard library does not.
class FileBuffer : public std::streambuf
{
public:
    FileBuffer(Descriptor file, fs::path folder) : m_file(std::move(file)), m_folder(std::move(folder)) { }

private:
    int_type underflow() override
    {
        ssize_t count = -1;
        do
            count = ::read(m_file.number(), m_block.data(), m_block.size());
        while (count < 0 && errno == EINTR);
        if (count < 0)
            failStorage("Can't read a file in " + m_folder.string(), errno);
        if (count == 0)
            return traits_type::eof();
        setg(m_block.data(), m_block.data(), m_block.data() + count);
        return traits_type::to_int_type(m_block.front());
    }

    Descriptor m_file;
    fs::path m_folder;
    std::vector<char> m_block = std::vector<char>(blockSize);
};

class FileStream : public std::istream
{
public:
    FileStream(Descriptor file, fs::path folder)
        : std::istream(nullptr)
        , m_buffer(std::move(file), std::move(folder))
    {
        rdbuf(&m_buffer);
        exceptions(std::ios::badbit); // lets the buffer's exceptions through
    }

private:
    FileBuffer m_buffer;
};

bool isOlder(const fs::path &file, std::int64_t before)
{
    struct stat state = {};
    if (::stat(file.c_str(), &state) != 0)
        return false; // gone
    return std::int64_t(1000) * state.st_mtim.tv_sec + state.st_mtim.tv_nsec / 1000000 < before;
}

std::vector<fs::path> olderFiles(const fs::path &folder, std::int64_t before)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (const fs::directory_entry &entry : fs::directory_iterator(folder, error)) {
        if (isOlder(entry.path(), before))
            files.push_back(entry.path());
    }
    return files;
}

} // namespace

FolderFileStore::FolderFileStore(const fs::path &folder)
    : m_folder(folder)
    , m_files(folder / "files")
    , m_incoming(folder / "incoming")
    , m_marks(m_files)
{
}

void FolderFileStore::prepare(Database &database)
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
    syncFolder(m_folder);
    m_marks.add(database);
}

std::unique_ptr<IncomingFile> FolderFileStore::receive(const std::string &location)
{
    return std::make_unique<IncomingFolderFile>(m_incoming / randomId(), pathOf(location));
}

std::unique_ptr<std::istream> FolderFileStore::open(const std::string &location, std::uint64_t size) const
{
    Descriptor file(::open(pathOf(location).c_str(), O_RDONLY | O_CLOEXEC));
    struct stat state = {};
    if (!file.isOpen() && errno == ENOENT)
        return nullptr;
    if (!file.isOpen() || ::fstat(file.number(), &state) != 0)
        failStorage("Can't open a file in " + m_files.string(), errno);
    if (static_cast<std::uint64_t>(state.st_size) != size)
        return nullptr;
    return std::make_unique<FileStream>(std::move(file), m_files);
}

void FolderFileStore::remove(const std::string &location)
{
    const fs::path path = pathOf(location);
    if (::unlink(path.c_str()) != 0 && errno != ENOENT)
        failStorage("Can't remove a file from " + m_files.string(), errno);
}

std::size_t FolderFileStore::sweep(std::int64_t before, const UnknownAmong &unknownAmong)
{
    for (const fs::path &file : olderFiles(m_incoming, before))
        fs::remove(file);
    if (!m_marks.isAlone()) {
        logEvent("sweep_refused", {{"other_inboxes_in", m_marks.list().string()}});
        return 0;
    }
    std::size_t count = 0;
    for (const fs::directory_entry &folder : fs::directory_iterator(m_files)) {
        std::vector<std::string> locations;
        for (const fs::path &file : olderFiles(folder.path(), before))
            locations.push_back(folder.path().filename().string() + file.filename().string());
        for (const std::string &location : unknownAmong(locations))
            count += fs::remove(pathOf(location)) ? 1 : 0;
    }
    return count;
}

fs::path FolderFileStore::pathOf(const std::string &location) const
{
    return m_files / location.substr(0, 2) / location.substr(2);
}

} // namespace wexel::receiver

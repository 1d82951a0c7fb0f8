#include "Transfer/TarReader.h"

#include "BlockSize.h"
#include "Storage/Folders.h"

#include <archive.h>
#include <archive_entry.h>
#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>
#include <vector>

namespace wexel::receiver {

namespace {

int openForReading(const std::string &file)
{
    const int descriptor = file == "-" ? ::dup(STDIN_FILENO) : ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        failStorage("Can't read " + file, errno);
    return descriptor;
}

} // namespace

TarReader::TarReader(const std::string &file)
    : m_file(file)
    , m_descriptor(openForReading(file))
    , m_archive(archive_read_new(), archive_read_free)
{
    archive_read_support_format_tar(m_archive.get());
    if (archive_read_open_fd(m_archive.get(), m_descriptor, blockSize) != ARCHIVE_OK)
        fail(archive_error_string(m_archive.get()));
}

TarReader::~TarReader()
{
    m_archive.reset();
    ::close(m_descriptor);
}

std::string TarReader::next()
{
    archive_entry *entry = nullptr;
    const int result = archive_read_next_header(m_archive.get(), &entry);
    if (result == ARCHIVE_EOF)
        return {};
    if (result < ARCHIVE_WARN)
        fail(archive_error_string(m_archive.get()));
    const char *name = archive_entry_pathname(entry);
    if (archive_entry_filetype(entry) != AE_IFREG || !name || *name == '\0')
        fail("it has an entry that is no file");
    // A few bytes could claim to be as many as fill the disk.
    if (archive_entry_sparse_count(entry) > 0)
        fail("it has an entry with holes");
    return name;
}

void TarReader::read(const std::function<void(std::string_view)> &take)
{
    std::vector<char> block(blockSize);
    la_ssize_t count = 0;
    while ((count = archive_read_data(m_archive.get(), block.data(), block.size())) > 0)
        take({block.data(), static_cast<std::size_t>(count)});
    if (count < 0)
        fail(archive_error_string(m_archive.get()));
}

std::string TarReader::readAll(std::size_t most)
{
    std::string content;
    read([&](std::string_view piece) {
        content += piece;
        if (content.size() > most)
            fail("an entry is too large");
    });
    return content;
}

void TarReader::fail(const std::string &why) const
{
    throw std::runtime_error(m_file + " can't be imported: " + why);
}

} // namespace wexel::receiver

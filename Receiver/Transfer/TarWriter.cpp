#include "Transfer/TarWriter.h"

#include "BlockSize.h"
#include "Storage/Folders.h"

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace wexel::receiver {

namespace {

/// The name of \a file until it is whole; empty for the standard output. What is no file, such as /dev/null or /dev/stdout,
/// is refused: the archive would be put in its place.
std::string partOf(const std::string &file)
{
    if (file == "-")
        return {};
    std::error_code error;
    const std::filesystem::file_status there = std::filesystem::symlink_status(file, error);
    if (std::filesystem::exists(there) && !std::filesystem::is_regular_file(there))
        throw std::runtime_error("Can't write " + file
                                 + ": something else than a file is there (the standard output is -)");
    return file + ".part.XXXXXX";
}

/// Another writer may have the same target, so \a part gets a name of its own.
int openForWriting(std::string &part)
{
    if (part.empty())
        return STDOUT_FILENO;
    const int descriptor = ::mkostemp(part.data(), O_CLOEXEC);
    if (descriptor < 0)
        failStorage("Can't write " + part, errno);
    return descriptor;
}

} // namespace

TarWriter::TarWriter(const std::string &file)
    : m_file(file)
    , m_part(partOf(file))
    , m_descriptor(openForWriting(m_part))
    , m_archive(archive_write_new(), archive_write_free)
{
    require(archive_write_set_format_pax(m_archive.get()));
    require(archive_write_open_fd(m_archive.get(), m_descriptor));
}

TarWriter::~TarWriter()
{
    if (m_part.empty())
        return;
    m_archive.reset();
    ::close(m_descriptor);
    ::unlink(m_part.c_str());
}

void TarWriter::add(const std::string &name, const std::string &content, std::int64_t time)
{
    begin(name, content.size(), time);
    write(content.data(), content.size());
}

bool TarWriter::add(const std::string &name, std::istream &content, std::uint64_t size, std::int64_t time)
{
    begin(name, size, time);
    std::vector<char> block(blockSize);
    while (size > 0) {
        content.read(block.data(), static_cast<std::streamsize>(std::min<std::uint64_t>(size, blockSize)));
        const auto count = static_cast<std::size_t>(content.gcount());
        if (count == 0)
            return false;
        write(block.data(), count);
        size -= count;
    }
    return true;
}

void TarWriter::finish()
{
    require(archive_write_close(m_archive.get()));
    if (m_part.empty())
        return;
    if (::fsync(m_descriptor) != 0)
        failStorage("Can't sync " + m_part, errno);
    if (::rename(m_part.c_str(), m_file.c_str()) != 0)
        failStorage("Can't name " + m_file, errno);
    ::close(m_descriptor);
    m_part.clear();
    syncFolder(std::filesystem::absolute(m_file).parent_path());
}

void TarWriter::begin(const std::string &name, std::uint64_t size, std::int64_t time)
{
    const std::unique_ptr<archive_entry, void (*)(archive_entry *)> entry(archive_entry_new(),
                                                                          archive_entry_free);
    archive_entry_set_pathname(entry.get(), name.c_str());
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(size));
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0600);
    archive_entry_set_mtime(entry.get(), static_cast<time_t>(time / 1000), 0);
    require(archive_write_header(m_archive.get(), entry.get()));
}

void TarWriter::write(const char *bytes, std::size_t size)
{
    require(archive_write_data(m_archive.get(), bytes, size));
}

void TarWriter::require(std::int64_t result) const
{
    if (result >= ARCHIVE_WARN)
        return;
    std::string why = archive_error_string(m_archive.get());
    // The text for a write that failed does not say why; the number is the system's, or not above 0.
    if (const int code = archive_errno(m_archive.get()); code > 0)
        why += ": " + std::generic_category().message(code);
    throw std::runtime_error("Can't write " + m_file + ": " + why);
}

} // namespace wexel::receiver

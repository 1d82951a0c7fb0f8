#include "ZipWriter.h"

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <cerrno>
#include <stdexcept>
#include <vector>

#include "BlockSize.h"

namespace wexel::receiver {

namespace {

la_ssize_t writeTo(archive *zip, void *output, const void *bytes, std::size_t size)
{
    std::ostream &stream = *static_cast<std::ostream *>(output);
    if (stream.write(static_cast<const char *>(bytes), static_cast<std::streamsize>(size)))
        return static_cast<la_ssize_t>(size);
    archive_set_error(zip, EIO, "The receiver of the archive has left");
    return ARCHIVE_FATAL;
}

} // namespace

ZipWriter::ZipWriter(std::ostream &output) : m_archive(archive_write_new(), archive_write_free)
{
    require(archive_write_set_format_zip(m_archive.get()));
    require(archive_write_set_options(m_archive.get(), "hdrcharset=UTF-8"));
    require(archive_write_set_bytes_per_block(m_archive.get(), blockSize));
    require(archive_write_set_bytes_in_last_block(m_archive.get(), 1));
    require(archive_write_open(m_archive.get(), &output, nullptr, writeTo, nullptr));
}

ZipWriter::~ZipWriter() = default;

void ZipWriter::add(const std::string &name, std::istream &content, std::uint64_t size, std::int64_t time,
                    Packing packing)
{
    require(packing == Packing::Stored ? archive_write_zip_set_compression_store(m_archive.get())
                                       : archive_write_zip_set_compression_deflate(m_archive.get()));
    begin(name, size, time);
    std::vector<char> block(std::min<std::uint64_t>(size, blockSize));
    for (std::uint64_t left = size; left > 0;) {
        const std::size_t count = std::min<std::uint64_t>(left, block.size());
        if (!content.read(block.data(), static_cast<std::streamsize>(count)))
            throw std::runtime_error("A file ended early: " + name);
        if (archive_write_data(m_archive.get(), block.data(), count) < 0)
            require(ARCHIVE_FATAL);
        left -= count;
    }
}

void ZipWriter::begin(const std::string &name, std::uint64_t size, std::int64_t time)
{
    const std::unique_ptr<archive_entry, void (*)(archive_entry *)> entry(archive_entry_new(),
                                                                          archive_entry_free);
    archive_entry_set_pathname_utf8(entry.get(), name.c_str());
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(size));
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0600);
    archive_entry_set_mtime(entry.get(), static_cast<time_t>(time / 1000), 0);
    require(archive_write_header(m_archive.get(), entry.get()));
}

void ZipWriter::finish()
{
    require(archive_write_close(m_archive.get()));
}

void ZipWriter::require(int result) const
{
    if (result < ARCHIVE_WARN)
        throw std::runtime_error(archive_error_string(m_archive.get()));
}

} // namespace wexel::receiver

#pragma once

#include <cstdint>
#include <istream>
#include <memory>
#include <ostream>
#include <string>

struct archive;

namespace wexel::receiver {

/// Writes a zip archive to a stream as its entries come, so that it is never held in memory. Throws std::runtime_error if
/// the stream can't take more.
class ZipWriter
{
public:
    /// \a output must outlive it.
    explicit ZipWriter(std::ostream &output);
    ~ZipWriter();
    ZipWriter(const ZipWriter &) = delete;
    ZipWriter &operator=(const ZipWriter &) = delete;

    enum class Packing { Deflated, Stored };

    /// \a size bytes of \a content; throws if it has less. \a time is in milliseconds since 1970.
    void add(const std::string &name, std::istream &content, std::uint64_t size, std::int64_t time,
             Packing packing = Packing::Deflated);

    /// Writes the directory, without which the archive is not whole.
    void finish();

private:
    void begin(const std::string &name, std::uint64_t size, std::int64_t time);
    void require(int result) const;

    std::unique_ptr<archive, int (*)(archive *)> m_archive;
};

} // namespace wexel::receiver

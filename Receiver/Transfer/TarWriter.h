#pragma once

#include <cstdint>
#include <istream>
#include <memory>
#include <string>

struct archive;

namespace wexel::receiver {

/// Writes a pax tar to a file, which is there under its name only once it is whole. Throws std::runtime_error or
/// StorageError.
class TarWriter
{
public:
    /// \a file of "-" is the standard output.
    explicit TarWriter(const std::string &file);
    ~TarWriter(); ///< without finish(), nothing is left
    TarWriter(const TarWriter &) = delete;
    TarWriter &operator=(const TarWriter &) = delete;

    /// \a time is in milliseconds since 1970.
    void add(const std::string &name, const std::string &content, std::int64_t time);

    /// \a size bytes of \a content; false if it ended early, and zeros stand for the rest.
    bool add(const std::string &name, std::istream &content, std::uint64_t size, std::int64_t time);

    /// Returns once the file is safe from a crash.
    void finish();

private:
    void begin(const std::string &name, std::uint64_t size, std::int64_t time);
    void write(const char *bytes, std::size_t size);
    void require(std::int64_t result) const;

    std::string m_file;
    std::string m_part; ///< the name until it is whole; empty for the standard output
    int m_descriptor;
    std::unique_ptr<archive, int (*)(archive *)> m_archive;
};

} // namespace wexel::receiver

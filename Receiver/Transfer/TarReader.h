#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct archive;

namespace wexel::receiver {

/// Reads a tar as it comes. Throws std::runtime_error with a text for the user, also if the file is cut or damaged.
class TarReader
{
public:
    /// \a file of "-" is the standard input.
    explicit TarReader(const std::string &file);
    ~TarReader();
    TarReader(const TarReader &) = delete;
    TarReader &operator=(const TarReader &) = delete;

    /// The name of the next file; empty at the end.
    std::string next();

    /// Hands the content of that file over in pieces.
    void read(const std::function<void(std::string_view)> &take);

    /// The content of that file, which must not be longer than \a most bytes.
    std::string readAll(std::size_t most);

    [[noreturn]] void fail(const std::string &why) const;

private:
    std::string m_file;
    int m_descriptor;
    std::unique_ptr<archive, int (*)(archive *)> m_archive;
};

} // namespace wexel::receiver

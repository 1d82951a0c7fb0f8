#pragma once

#include <Poco/Crypto/DigestEngine.h>

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace wexel::receiver {

/// The bytes of the uploaded files, each under its SHA-256: DIR/files/ab/cdef... Every thread may use it; there is no lock,
/// as each upload writes to a temporary file of its own, which an atomic rename publishes.
class FileStore
{
public:
    explicit FileStore(const std::filesystem::path &data);

    /// For the one process that serves the folder, before its first upload: makes the folders that are missing and deletes
    /// the temporary files that a killed process left. Throws StorageError.
    void prepare() const;

    /// Deletes the files whose SHA-256 is not in \a kept and returns how many. To be called before the first upload.
    std::size_t removeAllBut(const std::set<std::string> &kept) const;

    std::filesystem::path pathOf(const std::string &sha256) const;

private:
    friend class IncomingFile;

    std::filesystem::path m_data;
    std::filesystem::path m_files;
    std::filesystem::path m_incoming;
};

/// One file on its way in. Destroyed before publish(), it is gone without a trace.
class IncomingFile
{
public:
    explicit IncomingFile(const FileStore &store);
    ~IncomingFile();
    IncomingFile(const IncomingFile &) = delete;
    IncomingFile &operator=(const IncomingFile &) = delete;

    void write(std::string_view bytes);

    /// Returns the content's SHA-256 once the bytes and their name are safe from a crash. Throws StorageError.
    std::string publish();

    std::uint64_t size() const { return m_size; }

private:
    const FileStore &m_store;
    std::filesystem::path m_path; ///< empty once published
    int m_descriptor;
    std::uint64_t m_size = 0;
    Poco::Crypto::DigestEngine m_digest;
};

} // namespace wexel::receiver

#pragma once

#include <Poco/Crypto/DigestEngine.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wexel::receiver {

/// One file on its way in. Destroyed before publish(), it is gone without a trace, or is swept later.
class IncomingFile
{
public:
    virtual ~IncomingFile() = default;
    IncomingFile(const IncomingFile &) = delete;
    IncomingFile &operator=(const IncomingFile &) = delete;

    /// Throws StorageError.
    void write(std::string_view bytes);

    /// Returns the content's SHA-256 once the bytes and their location are safe from a crash as soon as the file's row is.
    /// Throws StorageError.
    std::string publish();

    std::uint64_t size() const { return m_size; }

protected:
    IncomingFile() : m_digest("SHA256") { }

private:
    virtual void append(std::string_view bytes) = 0;
    virtual void finish() = 0;

    std::uint64_t m_size = 0;
    Poco::Crypto::DigestEngine m_digest;
};

/// The bytes of the uploaded files, each at a location that names nothing else: 32 to 64 hexadecimal digits. Every thread
/// may use it.
class FileStore
{
public:
    /// Of some locations, those that no file has.
    using UnknownAmong = std::function<std::vector<std::string>(const std::vector<std::string> &)>;

    virtual ~FileStore() = default;

    virtual std::unique_ptr<IncomingFile> receive(const std::string &location) = 0;

    /// The bytes; nothing if they are not there or not of \a size, that is, lost. If they can't be read now, this and reading
    /// the stream throw StorageError. The store must outlive it.
    virtual std::unique_ptr<std::istream> open(const std::string &location, std::uint64_t size) const = 0;

    /// Deletes the bytes, if they are there. Throws StorageError.
    virtual void remove(const std::string &location) = 0;

    /// Deletes what has no file and arrived before \a before (milliseconds since 1970): a killed process left it between
    /// two steps. Returns how many.
    virtual std::size_t sweep(std::int64_t before, const UnknownAmong &unknownAmong) = 0;

    /// The path of the bytes; empty where they have none.
    virtual std::filesystem::path pathOf(const std::string &location) const = 0;
};

} // namespace wexel::receiver

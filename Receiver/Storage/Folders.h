#pragma once

#include <filesystem>
#include <string>
#include <utility>

namespace wexel::receiver {

/// An open file, which is closed at the end; or none.
class Descriptor
{
public:
    explicit Descriptor(int number = -1) : m_number(number) { }
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) { }
    Descriptor &operator=(Descriptor &&) = delete;
    ~Descriptor();

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

private:
    int m_number;
};

/// Throws the StorageError for the system's error \a code.
[[noreturn]] void failStorage(const std::string &what, int code);

/// Makes \a file, which must not be there, to be written. It is for the owner of its folder alone, whoever makes it: a
/// command that root runs must leave nothing that the server can't read. Not open, with errno, if it fails.
Descriptor makeFile(const std::filesystem::path &file);

/// Opens \a file with \a flags; makes it as makeFile() does if it is missing. Never follows a link, which the folder's
/// owner could lead root astray with.
Descriptor openOrMakeFile(const std::filesystem::path &file, int flags);

/// Makes \a folder (mode 0700, for its parent's owner) unless it is there; its parent must be.
void makeFolder(const std::filesystem::path &folder);

/// Returns once the entries of \a folder are safe from a power cut.
void syncFolder(const std::filesystem::path &folder);

} // namespace wexel::receiver

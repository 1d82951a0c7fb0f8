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

/// Makes \a folder (mode 0700) unless it is there; its parent must be.
void makeFolder(const std::filesystem::path &folder);

/// Returns once the entries of \a folder are safe from a power cut.
void syncFolder(const std::filesystem::path &folder);

} // namespace wexel::receiver

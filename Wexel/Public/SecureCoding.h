#pragma once

#include <QtCore/QString>

#include <Wexel/WexelExport.h>

namespace wexel {

class Coder;

/// What the library's archives can hold beside plain values: a class with a name and keyed fields.
/// Implemented by the library's own classes; a host only passes such objects around.
class WEXEL_EXPORT SecureCoding
{
public:
    SecureCoding() = default;
    SecureCoding(const SecureCoding &) = default;
    SecureCoding(SecureCoding &&) = default;
    SecureCoding &operator=(const SecureCoding &) = default;
    SecureCoding &operator=(SecureCoding &&) = default;
    virtual ~SecureCoding();

    /// The name under which the class stands in an archive, for example "WXLWexelFile".
    [[nodiscard]] virtual QString codingClassName() const = 0;
    /// Writes every field under its own key. Absent fields are not written.
    virtual void encodeWithCoder(Coder &coder) const = 0;
    /// Every archivable class of the library decodes with secure coding.
    [[nodiscard]] static constexpr bool supportsSecureCoding() { return true; }
};

} // namespace wexel

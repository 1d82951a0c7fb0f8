#pragma once

#include "Platform/KeyedArchiver.h"

namespace wexel {

/// Any entry of a history. Has no fields of its own; an archive that allows this class allows its five
/// subclasses. Records belong to one thread at a time.
class WXLBlackBoxObject : public SecureCoding
{
public:
    [[nodiscard]] QString className() const override;
    void encodeWithCoder(Coder &coder) const override;
    [[nodiscard]] static const ArchivableClass &archivableClass();
};

} // namespace wexel

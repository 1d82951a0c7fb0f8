#pragma once

#include "Business/WXLBlackBoxObject.h"

namespace wexel {

inline const QString kTClassName = QStringLiteral("tClassNameKey");
inline const QString kTViewController = QStringLiteral("tViewControllerKey");
inline const QString kTProperty = QStringLiteral("tPropertyKey");
inline const QString kTTime = QStringLiteral("tTimeKey");

/// One user tap.
class TouchRecord final : public WXLBlackBoxObject
{
public:
    std::optional<QString> touchedClassName; ///< class name of the touched view
    std::optional<QString> viewController; ///< class name of the controller that owns it
    std::optional<QString> property; ///< extra description of the touched element
    std::optional<QString> timestamp;

    TouchRecord(std::optional<QString> className, std::optional<QString> viewController,
                std::optional<QString> property, std::optional<QString> timestamp);
    explicit TouchRecord(const Coder &coder);

    [[nodiscard]] QString className() const override;
    void encodeWithCoder(Coder &coder) const override;
    [[nodiscard]] static const ArchivableClass &archivableClass();
};

} // namespace wexel

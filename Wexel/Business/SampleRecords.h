#pragma once

#include "Business/WXLBlackBoxObject.h"

namespace wexel {

inline const QString kNType = QStringLiteral("nTypeKey");
inline const QString kNName = QStringLiteral("bNameKey"); // the "b" is the persisted format
inline const QString kNTime = QStringLiteral("nTimeKey");
inline const QString kBStatus = QStringLiteral("bStatusKey");
inline const QString kBLevel = QStringLiteral("bLevelKey");
inline const QString kBTime = QStringLiteral("bTimeKey");
inline const QString kRValue = QStringLiteral("rValueKey");
inline const QString kRTime = QStringLiteral("rTimeKey");

/// One network sample.
class Network final : public WXLBlackBoxObject
{
public:
    std::optional<QString> type;
    std::optional<QString> name;
    std::optional<QString> timestamp;

    Network(std::optional<QString> type, std::optional<QString> name, std::optional<QString> timestamp);
    explicit Network(const Coder &coder);

    [[nodiscard]] QString className() const override;
    void encodeWithCoder(Coder &coder) const override;
    [[nodiscard]] static const ArchivableClass &archivableClass();
};

/// One battery sample.
class Battery final : public WXLBlackBoxObject
{
public:
    std::optional<QString> status; ///< decimal text of the battery state
    std::optional<QString> level; ///< decimal text, 0.0 to 1.0, or -1
    std::optional<QString> timestamp;

    Battery(std::optional<QString> status, std::optional<QString> level, std::optional<QString> timestamp);
    explicit Battery(const Coder &coder);

    [[nodiscard]] QString className() const override;
    void encodeWithCoder(Coder &coder) const override;
    [[nodiscard]] static const ArchivableClass &archivableClass();
};

/// One numeric sample: CPU, memory, storage, orientation, or a session state.
class Record final : public WXLBlackBoxObject
{
public:
    std::optional<QString> value; ///< the number, already formatted
    std::optional<QString> timestamp;

    Record(std::optional<QString> value, std::optional<QString> timestamp);
    explicit Record(const Coder &coder);

    [[nodiscard]] QString className() const override;
    void encodeWithCoder(Coder &coder) const override;
    [[nodiscard]] static const ArchivableClass &archivableClass();
};

} // namespace wexel

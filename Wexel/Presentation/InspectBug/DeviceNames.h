#pragma once

#include <optional>

#include <QString>

namespace wexel {

/// What a model of a device is called, by its identifier; nothing for one that is not known.
[[nodiscard]] std::optional<QString> deviceName(const QString &identifier);

/// The generation of a radio access technology ("2G", "3G", "4G"), by the platform's name for it; empty for one that is
/// not known.
[[nodiscard]] QString radioGeneration(const QString &technology);

} // namespace wexel

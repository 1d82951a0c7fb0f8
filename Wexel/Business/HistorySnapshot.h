#pragma once

#include <optional>

#include <QString>
#include <QVariantList>

namespace wexel {

class WXLAppRepository;

/// The values of a history's stored copy, oldest first; empty when it cannot be read.
[[nodiscard]] QVariantList storedRecords(const QByteArray &stored);

/// The records stored under a history's key, oldest first; nothing when there are none or they cannot be read. The
/// stored copy is the one that counts, so this may be called on any thread.
/// \param reader names the reader in the log line of a failure, for example "WXLBlackBox"
[[nodiscard]] std::optional<QVariantList> historySnapshot(const WXLAppRepository &repository,
                                                          const QString &key, const QString &reader);

} // namespace wexel

#pragma once

#include <QString>

namespace wexel {

/// A failure as it travels through completion blocks and into log lines.
struct Error {
    QString domain;
    int code = 0;
    /// What happened, for a person; empty when only domain and code are known.
    QString message = {};

    /// The message, else "The operation couldn’t be completed. (DOMAIN error CODE.)".
    [[nodiscard]] QString localizedDescription() const;
    /// "Error Domain=DOMAIN Code=CODE "MESSAGE"", with (null) for a missing message.
    [[nodiscard]] QString description() const;

    bool operator==(const Error &) const = default;
};

} // namespace wexel

#pragma once

#include <QString>

#include "Platform/Linux/BusService.h"

namespace wexel {

/// The login name of the user that this process runs as; empty when the account has none.
[[nodiscard]] QString loginName();

/// Whether the machine can ask its owner to prove who they are: the account has a password (told by the
/// shadow file where this process may read it, else by AccountsService) or enrolled fingers (told by
/// fprintd). Thread-safe: no state.
class OwnerAuthentication
{
public:
    OwnerAuthentication(BusProvider systemBus, QString user,
                        QString shadowFile = QStringLiteral("/etc/shadow"));

    [[nodiscard]] bool isPossible() const;

private:
    [[nodiscard]] bool hasShadowPassword() const;
    [[nodiscard]] bool hasAccountPassword() const;
    [[nodiscard]] bool hasFingerprint() const;

    BusProvider m_bus;
    QString m_user;
    QString m_shadowFile;
};

} // namespace wexel

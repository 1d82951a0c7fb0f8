#pragma once

#include <QString>

#include "Platform/Linux/BusService.h"

namespace wexel {

/// The login name of the user that this process runs as; empty when the account has none. The account may live in a
/// directory on the network: not for the main thread.
[[nodiscard]] QString loginName();

/// Whether the machine can ask its owner to prove who they are: the account has a password (told by AccountsService) or
/// enrolled fingers (told by fprintd). Thread-safe: no state.
class OwnerAuthentication
{
public:
    OwnerAuthentication(BusProvider systemBus, QString user);

    [[nodiscard]] bool isPossible() const;

private:
    [[nodiscard]] bool hasAccountPassword() const;
    [[nodiscard]] bool hasFingerprint() const;

    BusProvider m_bus;
    QString m_user;
};

} // namespace wexel

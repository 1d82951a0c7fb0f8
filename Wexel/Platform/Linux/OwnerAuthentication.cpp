#include "Platform/Linux/OwnerAuthentication.h"

#include <array>
#include <utility>

#include <QDBusObjectPath>
#include <QStringList>
#include <pwd.h>
#include <unistd.h>

namespace wexel {

namespace {
constexpr int regularPassword = 0; // PasswordMode of AccountsService; 1: chosen at the next login, 2: none
} // namespace

QString loginName()
{
    passwd entry{};
    passwd *found = nullptr;
    std::array<char, 4096> buffer{};
    getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr ? QString::fromLocal8Bit(found->pw_name) : QString();
}

OwnerAuthentication::OwnerAuthentication(BusProvider systemBus, QString user)
    : m_bus(std::move(systemBus))
    , m_user(std::move(user))
{
}

bool OwnerAuthentication::isPossible() const
{
    return !m_user.isEmpty() && (hasAccountPassword() || hasFingerprint());
}

bool OwnerAuthentication::hasAccountPassword() const
{
    const QString name = QStringLiteral("org.freedesktop.Accounts");
    BusService accounts(m_bus, name);
    const auto found = !accounts.isAvailable()
        ? std::nullopt
        : accounts.call(QStringLiteral("/org/freedesktop/Accounts"), name, QStringLiteral("FindUserByName"),
                        {m_user});
    if (!found)
        return false;
    const QString path = found->value(0).value<QDBusObjectPath>().path();
    const QString interface = name + QStringLiteral(".User");
    const QVariant mode = accounts.property(path, interface, QStringLiteral("PasswordMode"));
    const bool isLocked = accounts.property(path, interface, QStringLiteral("Locked")).toBool();
    return mode.isValid() && mode.toInt() == regularPassword && !isLocked;
}

bool OwnerAuthentication::hasFingerprint() const
{
    const QString name = QStringLiteral("net.reactivated.Fprint");
    BusService fprint(m_bus, name);
    const auto device = !fprint.isAvailable()
        ? std::nullopt
        : fprint.call(QStringLiteral("/net/reactivated/Fprint/Manager"), name + QStringLiteral(".Manager"),
                      QStringLiteral("GetDefaultDevice"));
    if (!device)
        return false;
    const auto fingers
        = fprint.call(device->value(0).value<QDBusObjectPath>().path(), name + QStringLiteral(".Device"),
                      QStringLiteral("ListEnrolledFingers"), {m_user});
    return fingers && !fingers->value(0).toStringList().isEmpty();
}

} // namespace wexel

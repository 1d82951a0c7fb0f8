#include "Platform/Linux/OwnerAuthentication.h"

#include <gtest/gtest.h>

#include <QDBusObjectPath>

#include "Platform/PrivateBus.h"

using namespace wexel;

namespace {

class OwnerAuthenticationTest : public testing::Test
{
protected:
    [[nodiscard]] bool isPossible()
    {
        return OwnerAuthentication(bus.provider(), QStringLiteral("ann")).isPossible();
    }
    void serveAccount(int passwordMode, bool isLocked)
    {
        bus.serve(QStringLiteral("org.freedesktop.Accounts"),
                  {{QStringLiteral("/org/freedesktop/Accounts FindUserByName ann"),
                    {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/user/ann")))}},
                   {QStringLiteral("/user/ann PasswordMode"), {passwordMode}},
                   {QStringLiteral("/user/ann Locked"), {isLocked}}});
    }
    void serveFingers(const QStringList &fingers)
    {
        bus.serve(QStringLiteral("net.reactivated.Fprint"),
                  {{QStringLiteral("/net/reactivated/Fprint/Manager GetDefaultDevice"),
                    {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/reader")))}},
                   {QStringLiteral("/reader ListEnrolledFingers ann"), {fingers}}});
    }

    PrivateBus bus;
};

} // namespace

TEST_F(OwnerAuthenticationTest, nobodyWhoKnowsIsANo)
{
    EXPECT_FALSE(isPossible());
}

TEST_F(OwnerAuthenticationTest, anAccountWithARegularPasswordCan)
{
    serveAccount(0, false);
    EXPECT_TRUE(isPossible());
}

TEST_F(OwnerAuthenticationTest, anAccountWithoutAPasswordOrLockedCannot)
{
    serveAccount(2, false);
    EXPECT_FALSE(isPossible());
    PrivateBus other;
    other.serve(QStringLiteral("org.freedesktop.Accounts"), {});
    EXPECT_FALSE(OwnerAuthentication(other.provider(), QStringLiteral("ann")).isPossible());
}

TEST_F(OwnerAuthenticationTest, aLockedAccountCanStillHaveFingers)
{
    serveAccount(0, true);
    EXPECT_FALSE(isPossible());
    serveFingers({QStringLiteral("right-index-finger")});
    EXPECT_TRUE(isPossible());
}

TEST_F(OwnerAuthenticationTest, aReaderWithoutFingersCannot)
{
    serveFingers({});
    EXPECT_FALSE(isPossible());
}

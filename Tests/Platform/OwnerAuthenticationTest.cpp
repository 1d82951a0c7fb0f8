#include "Platform/Linux/OwnerAuthentication.h"

#include <gtest/gtest.h>

#include <QDBusObjectPath>

#include "Platform/FileTree.h"
#include "Platform/PrivateBus.h"

using namespace wexel;

namespace {

class OwnerAuthenticationTest : public testing::Test
{
protected:
    [[nodiscard]] bool isPossible()
    {
        return OwnerAuthentication(bus.provider(), QStringLiteral("ann"), tree.path("shadow")).isPossible();
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
    FileTree tree;
};

} // namespace

TEST_F(OwnerAuthenticationTest, theShadowFileTellsLockedAndEmptyPasswordsFromRealOnes)
{
    EXPECT_FALSE(isPossible());
    for (const char *none : {"", "*", "!", "!!", "!$6$salt$hash"}) {
        tree.write("shadow", "root:$6$s$h:1::::::\nann:" + QByteArray(none) + ":19000:0:99999:7:::\n");
        EXPECT_FALSE(isPossible()) << none;
    }
    tree.write("shadow", "anna:!:1::::::\nann:$y$j9T$salt$hash:19000:0:99999:7:::\n");
    EXPECT_TRUE(isPossible());
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
    EXPECT_FALSE(
        OwnerAuthentication(other.provider(), QStringLiteral("ann"), tree.path("none")).isPossible());
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

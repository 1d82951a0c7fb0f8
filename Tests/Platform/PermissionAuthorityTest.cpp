#include "Platform/Linux/PermissionAuthority.h"

#include <gtest/gtest.h>

#include <QDBusMetaType>
#include <QMap>

#include "Platform/FileTree.h"
#include "Platform/PrivateBus.h"

using namespace wexel;

namespace {

using Entries = QMap<QString, QStringList>;

const QString application = QStringLiteral("com.example.Cafe");
const QString geoClue = QStringLiteral("org.freedesktop.GeoClue2");

class PermissionAuthorityTest : public testing::Test
{
protected:
    /// The store's answer to a look-up: these permissions for the application, others for someone else.
    void serveStore(const QString &question, const QStringList &permissions)
    {
        qDBusRegisterMetaType<Entries>();
        const Entries entries{{application, permissions},
                              {QStringLiteral("org.other"), {QStringLiteral("no")}}};
        const QString path = QStringLiteral("/org/freedesktop/impl/portal/PermissionStore Lookup ");
        session.serve(
            QStringLiteral("org.freedesktop.impl.portal.PermissionStore"),
            {{path + question, {QVariant::fromValue(entries), QVariant::fromValue(QDBusVariant(false))}}});
    }
    [[nodiscard]] PermissionState state(Permission permission, const QString &id = application)
    {
        const auto states
            = PermissionAuthority(session.provider(), system.provider(), devices.path()).states(id);
        const auto known = states.find(permission);
        return known == states.end() ? PermissionState::NotGranted : known->second;
    }

    PrivateBus session;
    PrivateBus system;
    FileTree devices;
};

} // namespace

TEST_F(PermissionAuthorityTest, nothingIsGrantedOnAMachineThatKnowsNothing)
{
    devices.write("snd/pcmC0D0p", ""); // plays, does not record
    for (const auto permission :
         {Permission::Camera, Permission::Microphone, Permission::Contacts, Permission::PhotoLibrary,
          Permission::Location, Permission::Calendar, Permission::MediaLibrary})
        EXPECT_EQ(state(permission), PermissionState::NotGranted);
}

TEST_F(PermissionAuthorityTest, aDeviceThatMayBeOpenedIsGranted)
{
    devices.write("video0", "");
    EXPECT_EQ(state(Permission::Camera), PermissionState::Granted);
    EXPECT_EQ(state(Permission::Microphone), PermissionState::NotGranted);
    devices.write("snd/pcmC1D0c", "");
    EXPECT_EQ(state(Permission::Microphone), PermissionState::Granted);
}

TEST_F(PermissionAuthorityTest, theStoresWordOutweighsTheDevice)
{
    devices.write("video0", "");
    serveStore(QStringLiteral("devices camera"), {QStringLiteral("no")});
    EXPECT_EQ(state(Permission::Camera), PermissionState::NotGranted);
    EXPECT_EQ(state(Permission::Camera, QStringLiteral("com.example.Unheard")), PermissionState::Granted);
}

TEST_F(PermissionAuthorityTest, theStoreGrantsWithoutADevice)
{
    serveStore(QStringLiteral("devices microphone"), {QStringLiteral("yes")});
    EXPECT_EQ(state(Permission::Microphone), PermissionState::Granted);
    EXPECT_EQ(state(Permission::Microphone, QStringLiteral("org.other")), PermissionState::NotGranted);
}

TEST_F(PermissionAuthorityTest, locationNeedsAnAccuracyAndGeoClue)
{
    serveStore(QStringLiteral("location location"), {QStringLiteral("EXACT"), QStringLiteral("1700000000")});
    EXPECT_EQ(state(Permission::Location), PermissionState::NotGranted);
    system.installActivatable(geoClue);
    EXPECT_EQ(state(Permission::Location), PermissionState::GrantedWhileUsing);
    EXPECT_EQ(state(Permission::Location, QStringLiteral("org.other")), PermissionState::NotGranted);
}

TEST_F(PermissionAuthorityTest, anAccuracyOfNoneIsNotGranted)
{
    system.installActivatable(geoClue);
    serveStore(QStringLiteral("location location"), {QStringLiteral("NONE"), QStringLiteral("0")});
    EXPECT_EQ(state(Permission::Location), PermissionState::NotGranted);
}

TEST(PortalApplicationIdTest, aFlatpakKnowsItsName)
{
    const FileTree tree;
    tree.write("info", "[Application]\nname=com.example.Boxed\nruntime=runtime/org.kde.Platform\n");
    EXPECT_EQ(portalApplicationId(tree.path("info")), QStringLiteral("com.example.Boxed"));
}

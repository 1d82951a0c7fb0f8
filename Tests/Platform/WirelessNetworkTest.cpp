#include "Platform/Linux/WirelessNetwork.h"

#include <gtest/gtest.h>

#include <QDBusMetaType>
#include <QDBusObjectPath>

#include "Platform/FileTree.h"
#include "Platform/PrivateBus.h"

using namespace wexel;

namespace {

using ManagedObjects = QMap<QDBusObjectPath, QMap<QString, QVariantMap>>;

const QString networkManager = QStringLiteral("org.freedesktop.NetworkManager");
const QString modemManager = QStringLiteral("org.freedesktop.ModemManager1");

QVariantList objectPath(const char *path)
{
    return {QVariant::fromValue(QDBusObjectPath(QLatin1String(path)))};
}

BusAnswers managerWithAccessPoint(const QByteArray &ssid)
{
    return {
        {QStringLiteral("/org/freedesktop/NetworkManager GetDeviceByIpIface wlan0"), objectPath("/device/0")},
        {QStringLiteral("/org/freedesktop/NetworkManager GetDeviceByIpIface wlan1"), objectPath("/device/1")},
        {QStringLiteral("/device/0 ActiveAccessPoint"), objectPath("/")},
        {QStringLiteral("/device/1 ActiveAccessPoint"), objectPath("/point/7")},
        {QStringLiteral("/point/7 Ssid"), {ssid}}};
}

BusAnswers managerWithModem(int state, uint technologies)
{
    qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
    qDBusRegisterMetaType<ManagedObjects>();
    const QVariantMap modem{{QStringLiteral("State"), state},
                            {QStringLiteral("AccessTechnologies"), technologies}};
    const ManagedObjects objects{
        {QDBusObjectPath(QStringLiteral("/modem/0")), {{modemManager + QStringLiteral(".Modem"), modem}}}};
    return {
        {QStringLiteral("/org/freedesktop/ModemManager1 GetManagedObjects"), {QVariant::fromValue(objects)}}};
}

class WirelessNetworkTest : public testing::Test
{
protected:
    WirelessNetworkTest() { tree.write("class/net/eth0/uevent", "INTERFACE=eth0\n"); }
    void addWifi() const
    {
        tree.write("class/net/wlan0/wireless/status", "");
        tree.write("class/net/wlan1/phy80211/name", "phy1\n");
    }
    void addModem() const { tree.write("class/net/wwan0/uevent", "DEVTYPE=wwan\nINTERFACE=wwan0\n"); }
    [[nodiscard]] NetworkIdentity identity()
    {
        return WirelessNetwork(bus.provider(), tree.path()).identity();
    }

    FileTree tree;
    PrivateBus bus;
};

} // namespace

TEST_F(WirelessNetworkTest, aMachineWithoutTheHardwareLeavesTheBusAlone)
{
    bus.serve(networkManager, managerWithAccessPoint("Lab"));
    EXPECT_EQ(identity().type, std::nullopt);
    EXPECT_EQ(identity().name, std::nullopt);
    EXPECT_EQ(bus.timesAsked, 0);
}

TEST_F(WirelessNetworkTest, namesTheFirstActiveAccessPoint)
{
    addWifi();
    bus.serve(networkManager, managerWithAccessPoint("Caf\xC3\xA9 \xF0\x9F\x93\xB6"));
    EXPECT_EQ(identity().type, QStringLiteral("wifi"));
    EXPECT_EQ(identity().name, QString(u"Café 📶"_qs));
}

TEST_F(WirelessNetworkTest, fallsBackToTheModem)
{
    addWifi();
    addModem();
    bus.serve(networkManager,
              {{QStringLiteral("/org/freedesktop/NetworkManager GetDeviceByIpIface wlan0"),
                objectPath("/device/0")},
               {QStringLiteral("/device/0 ActiveAccessPoint"), objectPath("/")}});
    bus.serve(modemManager, managerWithModem(11, 1U << 14U));
    EXPECT_EQ(identity().type, QStringLiteral("CTRadioAccessTechnologyLTE"));
    EXPECT_EQ(identity().name, std::nullopt);
}

TEST_F(WirelessNetworkTest, aModemThatIsNotRegisteredHasNoTechnology)
{
    addModem();
    bus.serve(modemManager, managerWithModem(7, 1U << 14U));
    EXPECT_EQ(identity().type, std::nullopt);
}

TEST_F(WirelessNetworkTest, hardwareWithoutItsServiceIsAbsentAndAnAnswerOfTheWrongTypeToo)
{
    addWifi();
    addModem();
    EXPECT_EQ(identity().type, std::nullopt);
    bus.serve(networkManager,
              {{QStringLiteral("/org/freedesktop/NetworkManager GetDeviceByIpIface wlan0"), {42}}});
    bus.serve(modemManager,
              {{QStringLiteral("/org/freedesktop/ModemManager1 GetManagedObjects"), {QStringLiteral("x")}}});
    EXPECT_EQ(identity().type, std::nullopt);
}

TEST(RadioAccessTechnologyTest, theNewestOfSeveralCounts)
{
    const auto name = [](uint bits) { return radioAccessTechnology(bits).value_or(QString()).mid(23); };
    EXPECT_EQ(radioAccessTechnology(0), std::nullopt);
    EXPECT_EQ(radioAccessTechnology(1), std::nullopt); // an analogue telephone line
    EXPECT_EQ(name(1U << 1U), QStringLiteral("GPRS"));
    EXPECT_EQ(name(1U << 3U | 1U << 4U), QStringLiteral("Edge"));
    EXPECT_EQ(name(1U << 5U | 1U << 4U), QStringLiteral("WCDMA"));
    EXPECT_EQ(name(1U << 6U | 1U << 7U), QStringLiteral("HSDPA"));
    EXPECT_EQ(name(1U << 12U), QStringLiteral("CDMAEVDORevA"));
    EXPECT_EQ(name(1U << 16U), QStringLiteral("LTE"));
    EXPECT_EQ(name(1U << 15U), QStringLiteral("NR"));
    EXPECT_EQ(name(1U << 15U | 1U << 14U), QStringLiteral("NRNSA"));
}

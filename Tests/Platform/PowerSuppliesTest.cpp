#include "Platform/Linux/PowerSupplies.h"

#include <gtest/gtest.h>

#include "Platform/FileTree.h"

using namespace wexel;

namespace {

class PowerSuppliesTest : public testing::Test
{
protected:
    void addBattery(const QByteArray &name, const QByteArray &status, const QByteArray &capacity) const
    {
        tree.write(name + "/type", "Battery\n");
        tree.write(name + "/status", status + '\n');
        tree.write(name + "/capacity", capacity + '\n');
    }
    [[nodiscard]] BatteryFact battery() const { return PowerSupplies(tree.path()).battery(); }

    FileTree tree;
};

} // namespace

TEST_F(PowerSuppliesTest, aMachineWithoutABatteryKnowsNeitherStateNorLevel)
{
    tree.write("AC/type", "Mains\n");
    tree.write("AC/online", "1\n");
    EXPECT_EQ(battery().state, 0);
    EXPECT_EQ(battery().level, -1.0F);
    EXPECT_EQ(PowerSupplies(tree.path("missing")).battery().level, -1.0F);
}

TEST_F(PowerSuppliesTest, everyStatusHasItsCode)
{
    struct Case {
        const char *status;
        const char *capacity;
        int state;
        float level;
    };
    for (const Case &c : {Case{"Discharging", "42", 1, 0.42F}, Case{"Charging", "99", 2, 0.99F},
                          Case{"Full", "100", 3, 1.0F}, Case{"Not charging", "80", 2, 0.8F},
                          Case{"Not charging", "100", 3, 1.0F}, Case{"Unknown", "50", 0, 0.5F},
                          Case{"Discharging", "103", 1, 1.0F}, Case{"Charging", "rubbish", 2, -1.0F}}) {
        addBattery("BAT0", c.status, c.capacity);
        EXPECT_EQ(battery().state, c.state) << c.status;
        EXPECT_FLOAT_EQ(battery().level, c.level) << c.status;
    }
}

TEST_F(PowerSuppliesTest, severalBatteriesCountAsOneBySize)
{
    addBattery("BAT0", "Full", "100");
    addBattery("BAT1", "Discharging", "25");
    EXPECT_EQ(battery().state, 1);
    EXPECT_FLOAT_EQ(battery().level, 0.625F);
    tree.write("BAT0/energy_full", "10000000\n");
    tree.write("BAT1/energy_full", "40000000\n");
    EXPECT_FLOAT_EQ(battery().level, 0.4F);
}

TEST_F(PowerSuppliesTest, peripheralsAndEmptyBaysDoNotCount)
{
    addBattery("hidpp_battery_0", "Discharging", "5");
    tree.write("hidpp_battery_0/scope", "Device\n");
    addBattery("BAT1", "Discharging", "0");
    tree.write("BAT1/present", "0\n");
    EXPECT_EQ(battery().level, -1.0F);
    addBattery("BAT0", "Charging", "60");
    EXPECT_EQ(battery().state, 2);
    EXPECT_FLOAT_EQ(battery().level, 0.6F);
}

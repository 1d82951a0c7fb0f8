#include "Platform/Linux/BusService.h"

#include <gtest/gtest.h>

#include "Platform/PrivateBus.h"

using namespace wexel;

TEST(BusServiceTest, aHungServiceIsNotAskedAgain)
{
    PrivateBus bus;
    const QString name = QStringLiteral("org.example.Hung");
    bus.serve(name, {{QStringLiteral("/hung First"), {}}, {QStringLiteral("/hung Second"), {2}}});
    constexpr std::chrono::milliseconds patience{50};
    BusService hung(bus.provider(), name, patience);
    EXPECT_FALSE(hung.call(QStringLiteral("/hung"), name, QStringLiteral("First")));
    EXPECT_FALSE(hung.call(QStringLiteral("/hung"), name, QStringLiteral("Second")));
    EXPECT_EQ(BusService(bus.provider(), name).call(QStringLiteral("/hung"), name, QStringLiteral("Second")),
              QVariantList({2}));
    EXPECT_EQ(bus.timesCalled, 2) << "calls arrive in order: the first and the last";
}

#include "Platform/Linux/SystemServices.h"

#include <gtest/gtest.h>

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QGuiApplication>
#include <QMap>

#include "Platform/Linux/OwnerAuthentication.h"
#include "Platform/MovedTree.h"
#include "Platform/PrivateBus.h"
#include "Platform/SilentBus.h"
#include "Support/Wait.h"

using namespace wexel;

namespace {

/// Both buses of the environment, for as long as the object lives.
class BusesOfTheEnvironment
{
public:
    explicit BusesOfTheEnvironment(const QString &address)
    {
        for (const char *variable : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"}) {
            m_before.insert(variable, qgetenv(variable));
            qputenv(variable, address.toUtf8());
        }
    }
    ~BusesOfTheEnvironment()
    {
        for (auto i = m_before.constBegin(); i != m_before.constEnd(); ++i)
            i.value().isNull() ? qunsetenv(i.key()) : qputenv(i.key(), i.value());
    }
    BusesOfTheEnvironment(const BusesOfTheEnvironment &) = delete;
    BusesOfTheEnvironment &operator=(const BusesOfTheEnvironment &) = delete;

private:
    QMap<const char *, QByteArray> m_before;
};

void serveMicrophoneAndAccount(PrivateBus &bus)
{
    using Entries = QMap<QString, QStringList>;
    qDBusRegisterMetaType<Entries>();
    const Entries entries{{QGuiApplication::desktopFileName(), {QStringLiteral("yes")}}};
    bus.serve(QStringLiteral("org.freedesktop.impl.portal.PermissionStore"),
              {{QStringLiteral("/org/freedesktop/impl/portal/PermissionStore Lookup devices microphone"),
                {QVariant::fromValue(entries), QVariant::fromValue(QDBusVariant(false))}}});
    bus.serve(QStringLiteral("org.freedesktop.Accounts"),
              {{QStringLiteral("/org/freedesktop/Accounts FindUserByName ") + loginName(),
                {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/user/me")))}},
               {QStringLiteral("/user/me PasswordMode"), {0}},
               {QStringLiteral("/user/me Locked"), {false}}});
}

bool mayRecord(const ServiceFacts &facts)
{
    const auto microphone = facts.permissions.find(Permission::Microphone);
    return microphone != facts.permissions.end() && microphone->second == PermissionState::Granted;
}

} // namespace

TEST(SystemServicesTest, aBusThatNeverAnswersHoldsNobodyUp)
{
    SilentBus bus;
    const BusesOfTheEnvironment environment(bus.address());
    SystemServices services;
    ASSERT_TRUE(spinUntil([&] { return bus.hasClient(); })) << "asked when made";
    const ServiceFacts facts = services.facts();
    const NetworkIdentity network = services.network();
    EXPECT_TRUE(bus.isWaitedFor()) << "the facts came before the connecting was given up";
    EXPECT_TRUE(facts.permissions.empty());
    EXPECT_FALSE(facts.canAuthenticateOwner);
    EXPECT_EQ(network.type, std::nullopt);
}

TEST(SystemServicesTest, aSlowAnswerServesTheNextWhoAsks)
{
    PrivateBus bus;
    QGuiApplication::setDesktopFileName(QStringLiteral("com.example.Cafe"));
    serveMicrophoneAndAccount(bus);
    const BusesOfTheEnvironment environment(bus.address());
    std::unique_lock slow(bus.gate);
    SystemServices services;
    ASSERT_TRUE(spinUntil([&] { return bus.timesCalled > 0; }));
    EXPECT_FALSE(services.facts().canAuthenticateOwner);
    EXPECT_FALSE(mayRecord(services.facts()));
    slow.unlock();
    EXPECT_TRUE(spinUntil([&] {
        const ServiceFacts facts = services.facts();
        return facts.canAuthenticateOwner && mayRecord(facts);
    }));
    slow.lock();
    EXPECT_TRUE(mayRecord(services.facts())) << "as last known";
}

TEST_F(MovedTree, aHostEndsAlthoughTheBusNeverAnswers)
{
    SilentBus bus;
    copy(PROBE_LINKED_IN, "bin/cafe");
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
    environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), bus.address());
    EXPECT_EQ(run("bin/cafe", {}, environment).value(5), QStringLiteral("0"));
    EXPECT_TRUE(bus.hasClient());
}

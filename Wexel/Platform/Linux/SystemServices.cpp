#include "Platform/Linux/SystemServices.h"

#include "Platform/Linux/BusConnection.h"
#include "Platform/Linux/OwnerAuthentication.h"
#include "Platform/Linux/PermissionAuthority.h"
#include "Platform/Linux/WirelessNetwork.h"

namespace wexel {

struct SystemServices::Buses {
    BusConnection session{sessionBusAddress()};
    BusConnection system{systemBusAddress()};

    BusProvider sessionProvider()
    {
        return [this] { return session.get(); };
    }
    BusProvider systemProvider()
    {
        return [this] { return system.get(); };
    }
};

SystemServices::SystemServices() : m_buses(std::make_shared<Buses>())
{
    askEverything();
}

ServiceFacts SystemServices::facts()
{
    askEverything();
    const auto deadline = std::chrono::steady_clock::now() + patience;
    return {m_permissions.answerBefore(deadline), m_network.answerBefore(deadline),
            m_canAuthenticateOwner.answerBefore(deadline)};
}

NetworkIdentity SystemServices::network()
{
    askForNetwork();
    return m_network.lastAnswer();
}

void SystemServices::askEverything()
{
    askForNetwork();
    m_permissions.begin([buses = m_buses, application = portalApplicationId()] {
        return PermissionAuthority(buses->sessionProvider(), buses->systemProvider()).states(application);
    });
    m_canAuthenticateOwner.begin(
        [buses = m_buses] { return OwnerAuthentication(buses->systemProvider(), loginName()).isPossible(); });
}

void SystemServices::askForNetwork()
{
    m_network.begin([buses = m_buses] { return WirelessNetwork(buses->systemProvider()).identity(); });
}

} // namespace wexel

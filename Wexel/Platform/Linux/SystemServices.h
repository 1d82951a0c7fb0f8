#pragma once

#include <chrono>
#include <memory>

#include <QString>

#include "Platform/DeviceFacts.h"
#include "Platform/Inquiry.h"

namespace wexel {

/// What services on the session's and the system's bus know of the machine. They are asked on detached threads,
/// where each has seconds to start and to answer; the first time when the object is made.
class SystemServices
{
public:
    /// How long `facts` waits for what is under way, all in all.
    static constexpr std::chrono::milliseconds patience{20};

    /// Main thread. The buses are those of the environment.
    SystemServices();

    /// Asks them all anew. What has not answered within `patience` is as last known. Main thread.
    [[nodiscard]] ServiceFacts facts();
    /// As last known, and asked anew. Never waits. Thread-safe.
    [[nodiscard]] NetworkIdentity network();

private:
    struct Buses;
    void askEverything();
    void askForNetwork();

    std::shared_ptr<Buses> m_buses;
    Inquiry<Permissions> m_permissions;
    Inquiry<NetworkIdentity> m_network;
    Inquiry<bool> m_canAuthenticateOwner;
};

} // namespace wexel

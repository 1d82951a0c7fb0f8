#pragma once

#include <QString>
#include <QStringList>

#include "Platform/DeviceFacts.h"
#include "Platform/Linux/BusService.h"

namespace wexel {

/// The text for ModemManager's access technologies (a set of MMModemAccessTechnology bits; the newest one
/// counts), in the platform's form "CTRadioAccessTechnologyLTE". Absent for an unknown one.
[[nodiscard]] std::optional<QString> radioAccessTechnology(uint technologies);

/// The Wi-Fi network that the machine is in, told by NetworkManager, else the radio technology of its modem,
/// told by ModemManager. The bus is left alone on a machine that has no such hardware. Thread-safe: no state.
class WirelessNetwork
{
public:
    explicit WirelessNetwork(BusProvider systemBus, QString sysFolder = QStringLiteral("/sys"));

    [[nodiscard]] NetworkIdentity identity() const;

private:
    [[nodiscard]] QStringList wifiInterfaces() const;
    [[nodiscard]] bool hasRadio() const;
    [[nodiscard]] std::optional<QString> wifiName(const QStringList &interfaces) const;
    [[nodiscard]] std::optional<QString> radioTechnology() const;

    BusProvider m_bus;
    QString m_sysFolder;
};

} // namespace wexel

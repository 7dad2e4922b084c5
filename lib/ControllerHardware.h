#pragma once

#include "lib/pell_export.h"

#include <QString>
#include <map>
#include <memory>
#include <vector>

namespace pell {

// The internal devices of a field controller whose power the library may switch.
enum class EDevice { Receiver, Modem };

// The controller the library runs on. On a controller of the family with an internal receiver
// and modem, the hooks switch those devices as the power-management flags allow. Whether a port
// is a local serial port at all is the port address's own test (rxio::IPortAddr::GetType).
// Operations may throw ulm_std::CWinException.
class PELL_EXPORT IControllerHardware {
public:
    virtual ~IControllerHardware();
    virtual bool IsTorvel() const = 0;
    // The backpack model of the family, whose tools live under a different menu.
    virtual bool IsBrantley() const = 0;
    virtual bool IsInternalReceiverPort(const QString& portName) const = 0;
    virtual bool IsInternalModemPort(const QString& portName) const = 0;

    virtual bool IsPowered(EDevice device) const = 0;
    virtual void PowerOn(EDevice device) = 0;
    virtual void PowerOff(EDevice device) = 0;
};

// An ordinary computer: not of the family, no internal devices.
class PELL_EXPORT CPlainComputerHardware final : public IControllerHardware {
public:
    bool IsTorvel() const override { return false; }
    bool IsBrantley() const override { return false; }
    bool IsInternalReceiverPort(const QString&) const override { return false; }
    bool IsInternalModemPort(const QString&) const override { return false; }
    bool IsPowered(EDevice) const override { return false; }
    void PowerOn(EDevice) override {}
    void PowerOff(EDevice) override {}
};

// A controller of the family in software, for tests and the demo: its model, its internal port
// names and the power of each device are set freely, every switch is recorded, and a device can
// be made to fail its next switch.
class PELL_EXPORT CSimulatedControllerHardware final : public IControllerHardware {
public:
    struct Switch {
        EDevice device;
        bool on;
        bool operator==(const Switch&) const = default;
    };

    CSimulatedControllerHardware(bool torvel, bool brantley, QString receiverPort,
                                 QString modemPort);

    bool IsTorvel() const override { return m_torvel; }
    bool IsBrantley() const override { return m_brantley; }
    bool IsInternalReceiverPort(const QString& portName) const override;
    bool IsInternalModemPort(const QString& portName) const override;
    bool IsPowered(EDevice device) const override;
    void PowerOn(EDevice device) override;
    void PowerOff(EDevice device) override;

    void SetPowered(EDevice device, bool on) { m_powered[device] = on; }
    // The next switch of `device` throws a CWinException with `code`.
    void FailNextSwitch(EDevice device, unsigned long code) { m_failure[device] = code; }
    const std::vector<Switch>& Switches() const { return m_switches; }

private:
    void Set(EDevice device, bool on);

    bool m_torvel;
    bool m_brantley;
    QString m_receiverPort;
    QString m_modemPort;
    std::map<EDevice, bool> m_powered;
    std::map<EDevice, unsigned long> m_failure;
    std::vector<Switch> m_switches;
};

// The hardware the hooks use: a plain computer until a host or test installs another.
PELL_EXPORT IControllerHardware& ControllerHardware();
// Installs `hardware` (null restores the plain computer) and returns the one it replaces.
PELL_EXPORT std::shared_ptr<IControllerHardware>
SetControllerHardware(std::shared_ptr<IControllerHardware> hardware);

} // namespace pell

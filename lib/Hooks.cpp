#include "lib/ControllerHardware.h"
#include "lib/Exceptions.h"
#include "lib/PellGlobalSettings.h"
#include "lib/PellLib.h"
#include "resources/StringIds.h"

#include <QApplication>

namespace {

using pell::EDevice;

// The internal receiver and modem are always on local serial ports.
bool IsLocalSerial(const std::shared_ptr<const rxio::IPortAddr>& port) {
    return port && port->GetType() == static_cast<int>(rxio::EPortType::LocalSerial);
}

struct DevicePolicy {
    EDevice device;
    bool (pell::IControllerHardware::*isPort)(const QString&) const;
    std::uint32_t onBeforeOpen;
    std::uint32_t offAfterClose;
    std::uint32_t offAtExit;
};

constexpr DevicePolicy kDevices[] = {
    {EDevice::Receiver, &pell::IControllerHardware::IsInternalReceiverPort,
     Torvel_Settings::ReceiverOnBeforeOpen, Torvel_Settings::ReceiverOffAfterClose,
     Torvel_Settings::ReceiverOffAtExit},
    {EDevice::Modem, &pell::IControllerHardware::IsInternalModemPort,
     Torvel_Settings::ModemOnBeforeOpen, Torvel_Settings::ModemOffAfterClose,
     Torvel_Settings::ModemOffAtExit},
};

unsigned UnpoweredMessage(const pell::IControllerHardware& hardware, EDevice device) {
    using namespace pell::ids;
    if (device == EDevice::Modem)
        return UnpoweredModem;
    return hardware.IsBrantley() ? UnpoweredReceiverBackpack : UnpoweredReceiver;
}

} // namespace

bool PreOpenPort(std::shared_ptr<const rxio::IPortAddr> port) {
    if (!IsLocalSerial(port))
        return true;
    try {
        const Torvel_Settings settings = CPellGlobalSettings::Ref().GetTorvelSettings();
        auto& hardware = pell::ControllerHardware();
        if (!hardware.IsTorvel())
            return true;
        const QString name = port->GetName();
        for (const DevicePolicy& policy : kDevices) {
            if (!(hardware.*policy.isPort)(name) || hardware.IsPowered(policy.device))
                continue;
            if (!settings.Has(policy.onBeforeOpen)) {
                g_PellLibApp.MessageBox(
                    QApplication::activeWindow(),
                    g_PellLibApp.XLoadString(UnpoweredMessage(hardware, policy.device)),
                    pell::MB_OK | pell::MB_ICONERROR);
                return false;
            }
            hardware.PowerOn(policy.device);
        }
        return true;
    } catch (const ulm_std::CException& e) {
        e.ReportError(QApplication::activeWindow());
        return false;
    }
}

bool PostClosePort(std::shared_ptr<const rxio::IPortAddr> port) {
    if (!IsLocalSerial(port))
        return true;
    try {
        const Torvel_Settings settings = CPellGlobalSettings::Ref().GetTorvelSettings();
        auto& hardware = pell::ControllerHardware();
        if (!hardware.IsTorvel())
            return true;
        const QString name = port->GetName();
        for (const DevicePolicy& policy : kDevices) {
            if ((hardware.*policy.isPort)(name) && settings.Has(policy.offAfterClose) &&
                hardware.IsPowered(policy.device))
                hardware.PowerOff(policy.device);
        }
        return true;
    } catch (const ulm_std::CException& e) {
        e.ReportError(QApplication::activeWindow());
        return false;
    }
}

void OnExitApp() {
    try {
        const Torvel_Settings settings = CPellGlobalSettings::Ref().GetTorvelSettings();
        auto& hardware = pell::ControllerHardware();
        if (!hardware.IsTorvel())
            return;
        // Switched off whatever the current state: the device may have come on behind our back.
        for (const DevicePolicy& policy : kDevices) {
            if (settings.Has(policy.offAtExit))
                hardware.PowerOff(policy.device);
        }
    } catch (const ulm_std::CException& e) {
        e.ReportError(QApplication::activeWindow());
    }
}

#include "lib/ControllerHardware.h"

#include "lib/Exceptions.h"
#include "lib/PellLib.h"
#include "lib/Replaceable.h"
#include "resources/StringIds.h"

#include <utility>

namespace pell {

namespace {

CReplaceable<IControllerHardware, CPlainComputerHardware>& Hardware() {
    static CReplaceable<IControllerHardware, CPlainComputerHardware> hardware;
    return hardware;
}

} // namespace

IControllerHardware::~IControllerHardware() = default;

CSimulatedControllerHardware::CSimulatedControllerHardware(bool torvel, bool brantley,
                                                           QString receiverPort, QString modemPort)
    : m_torvel(torvel), m_brantley(brantley), m_receiverPort(std::move(receiverPort)),
      m_modemPort(std::move(modemPort)) {}

bool CSimulatedControllerHardware::IsInternalReceiverPort(const QString& portName) const {
    return !m_receiverPort.isEmpty() && portName == m_receiverPort;
}

bool CSimulatedControllerHardware::IsInternalModemPort(const QString& portName) const {
    return !m_modemPort.isEmpty() && portName == m_modemPort;
}

bool CSimulatedControllerHardware::IsPowered(EDevice device) const {
    const auto it = m_powered.find(device);
    return it != m_powered.end() && it->second;
}

void CSimulatedControllerHardware::PowerOn(EDevice device) {
    Set(device, true);
}

void CSimulatedControllerHardware::PowerOff(EDevice device) {
    Set(device, false);
}

void CSimulatedControllerHardware::Set(EDevice device, bool on) {
    m_switches.push_back({device, on});
    if (const auto failure = m_failure.find(device); failure != m_failure.end()) {
        const unsigned long code = failure->second;
        m_failure.erase(failure);
        const unsigned name = device == EDevice::Receiver ? ids::DeviceReceiver : ids::DeviceModem;
        PELL_THROW_WIN(
            g_PellLibApp.XLoadString(ids::PowerSwitchFailed).arg(g_PellLibApp.XLoadString(name)),
            code);
    }
    m_powered[device] = on;
}

IControllerHardware& ControllerHardware() {
    return Hardware().Get();
}

std::shared_ptr<IControllerHardware>
SetControllerHardware(std::shared_ptr<IControllerHardware> hardware) {
    return Hardware().Set(std::move(hardware));
}

} // namespace pell

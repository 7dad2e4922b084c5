#include "receiver/VexTypes.h"

#include <QtGlobal>
#include <algorithm>
#include <optional>

namespace rxio::vex {

namespace {

// ASCII digits only: a sign, a blank or any other character makes the text no number.
std::optional<qulonglong> DecimalNumber(QStringView text) {
    const auto digit = [](QChar c) {
        return c >= u'0' && c <= u'9';
    };
    if (text.isEmpty() || !std::ranges::all_of(text, digit))
        return std::nullopt;
    bool ok = false; // false only when the number overflows
    const qulonglong number = text.toULongLong(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

} // namespace

int EnumTable::Parse(const QString& text, int fallback) const {
    const auto firstMatch = [&](auto matches) {
        const auto it = std::ranges::find_if(items, matches);
        return it == items.end() ? fallback : static_cast<int>(it - items.begin());
    };
    switch (parsing) {
    case OnOff:
        return text.contains(u"on") && !text.contains(u"off") ? On : Off;
    case Numeric:
        if (const auto number = DecimalNumber(text))
            return firstMatch([&](const Item& item) {
                return DecimalNumber(QString::fromLatin1(item.text)) == number;
            });
        return fallback;
    case Exact:
        break;
    }
    return firstMatch([&](const Item& item) { return text == QLatin1String(item.text); });
}

QString EnumTable::Text(int value) const {
    return value >= 0 && value < Count() ? QString::fromLatin1(items[value].text) : QString();
}

QString EnumTable::Name(int value) const {
    return value >= 0 && value < Count() ? QString::fromUtf8(items[value].name) : QString();
}

// Receiver texts (ASCII) and display names in value order. The names are the catalog's source
// texts under the context "PellNames"; the receiver model in sim/model.json carries the same
// tables, and the tests hold the two together.

constexpr EnumTable::Item kAntiJamming[] = {{"gps", QT_TRANSLATE_NOOP("PellNames", "GPS")},
                                            {"glo", QT_TRANSLATE_NOOP("PellNames", "GLONASS")},
                                            {"l1", QT_TRANSLATE_NOOP("PellNames", "L1")},
                                            {"l2", QT_TRANSLATE_NOOP("PellNames", "L2")},
                                            {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")},
                                            {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                            {"manual", QT_TRANSLATE_NOOP("PellNames", "Manual")}};
const EnumTable& TableOf(AntiJamming::EAntiJamming) {
    static constexpr EnumTable table{"EAntiJamming", kAntiJamming};
    return table;
}

constexpr EnumTable::Item kBaudRate[] = {{"300", QT_TRANSLATE_NOOP("PellNames", "300 baud")},
                                         {"600", QT_TRANSLATE_NOOP("PellNames", "600 baud")},
                                         {"1200", QT_TRANSLATE_NOOP("PellNames", "1200 baud")},
                                         {"2400", QT_TRANSLATE_NOOP("PellNames", "2400 baud")},
                                         {"4800", QT_TRANSLATE_NOOP("PellNames", "4800 baud")},
                                         {"9600", QT_TRANSLATE_NOOP("PellNames", "9600 baud")},
                                         {"19200", QT_TRANSLATE_NOOP("PellNames", "19200 baud")},
                                         {"38400", QT_TRANSLATE_NOOP("PellNames", "38400 baud")},
                                         {"57600", QT_TRANSLATE_NOOP("PellNames", "57600 baud")},
                                         {"115200", QT_TRANSLATE_NOOP("PellNames", "115200 baud")},
                                         {"153600", QT_TRANSLATE_NOOP("PellNames", "153600 baud")},
                                         {"230400", QT_TRANSLATE_NOOP("PellNames", "230400 baud")},
                                         {"460800", QT_TRANSLATE_NOOP("PellNames", "460800 baud")},
                                         {"921600", QT_TRANSLATE_NOOP("PellNames", "921600 baud")}};
const EnumTable& TableOf(EBaudRate) {
    static constexpr EnumTable table{"EBaudRate", kBaudRate};
    return table;
}

constexpr EnumTable::Item kButtonDynamicMode[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"static", QT_TRANSLATE_NOOP("PellNames", "Static")},
    {"kinematic", QT_TRANSLATE_NOOP("PellNames", "Kinematic")},
    {"toggle", QT_TRANSLATE_NOOP("PellNames", "Toggle Static/Kinematic")}};
const EnumTable& TableOf(ButtonDynamicMode::EButtonDynamicMode) {
    static constexpr EnumTable table{"EButtonDynamicMode", kButtonDynamicMode};
    return table;
}

constexpr EnumTable::Item kByteSize[] = {{"5", QT_TRANSLATE_NOOP("PellNames", "5 bits")},
                                         {"6", QT_TRANSLATE_NOOP("PellNames", "6 bits")},
                                         {"7", QT_TRANSLATE_NOOP("PellNames", "7 bits")},
                                         {"8", QT_TRANSLATE_NOOP("PellNames", "8 bits")}};
const EnumTable& TableOf(EByteSize) {
    static constexpr EnumTable table{"EByteSize", kByteSize};
    return table;
}

constexpr EnumTable::Item kDIONMode[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                         {"on", QT_TRANSLATE_NOOP("PellNames", "On")},
                                         {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")}};
const EnumTable& TableOf(DIONMode::EDIONMode) {
    static constexpr EnumTable table{"EDIONMode", kDIONMode};
    return table;
}

constexpr EnumTable::Item kELCCalibrationMode[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"level", QT_TRANSLATE_NOOP("PellNames", "Level Only")},
    {"compass", QT_TRANSLATE_NOOP("PellNames", "Compass Only")},
    {"full", QT_TRANSLATE_NOOP("PellNames", "Level and Compass")}};
const EnumTable& TableOf(ELCCalibrationMode::EELCCalibrationMode) {
    static constexpr EnumTable table{"EELCCalibrationMode", kELCCalibrationMode};
    return table;
}

constexpr EnumTable::Item kFnKeyMode[] = {
    {"none", QT_TRANSLATE_NOOP("PellNames", "None")},
    {"log", QT_TRANSLATE_NOOP("PellNames", "Start/Stop Logging")},
    {"mode", QT_TRANSLATE_NOOP("PellNames", "Switch Base/Rover")},
    {"init", QT_TRANSLATE_NOOP("PellNames", "Reinitialise RTK")}};
const EnumTable& TableOf(FnKeyMode::EFnKeyMode) {
    static constexpr EnumTable table{"EFnKeyMode", kFnKeyMode};
    return table;
}

constexpr EnumTable::Item kLocalBluetoothMode[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"server", QT_TRANSLATE_NOOP("PellNames", "Server")},
    {"client", QT_TRANSLATE_NOOP("PellNames", "Client")}};
const EnumTable& TableOf(LocalBluetoothMode::ELocalBluetoothMode) {
    static constexpr EnumTable table{"ELocalBluetoothMode", kLocalBluetoothMode};
    return table;
}

constexpr EnumTable::Item kMMode[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                      {"auto", QT_TRANSLATE_NOOP("PellNames", "Automatic")},
                                      {"manual", QT_TRANSLATE_NOOP("PellNames", "Manual")}};
const EnumTable& TableOf(EMMode) {
    static constexpr EnumTable table{"EMMode", kMMode};
    return table;
}

constexpr EnumTable::Item kMState[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                       {"init", QT_TRANSLATE_NOOP("PellNames", "Initialising")},
                                       {"ready", QT_TRANSLATE_NOOP("PellNames", "Ready")},
                                       {"dialing", QT_TRANSLATE_NOOP("PellNames", "Dialing")},
                                       {"connected", QT_TRANSLATE_NOOP("PellNames", "Connected")},
                                       {"error", QT_TRANSLATE_NOOP("PellNames", "Error")}};
const EnumTable& TableOf(EMState) {
    static constexpr EnumTable table{"EMState", kMState};
    return table;
}

constexpr EnumTable::Item kModem[] = {{"none", QT_TRANSLATE_NOOP("PellNames", "None")},
                                      {"gsm", QT_TRANSLATE_NOOP("PellNames", "GSM/GPRS")},
                                      {"umts", QT_TRANSLATE_NOOP("PellNames", "UMTS")},
                                      {"lte", QT_TRANSLATE_NOOP("PellNames", "LTE")},
                                      {"uhf", QT_TRANSLATE_NOOP("PellNames", "UHF Radio")}};
const EnumTable& TableOf(EModem) {
    static constexpr EnumTable table{"EModem", kModem};
    return table;
}

constexpr EnumTable::Item kOmniSymbolRate[] = {
    {"609", QT_TRANSLATE_NOOP("PellNames", "609 sps")},
    {"1219", QT_TRANSLATE_NOOP("PellNames", "1219 sps")},
    {"2438", QT_TRANSLATE_NOOP("PellNames", "2438 sps")},
    {"4876", QT_TRANSLATE_NOOP("PellNames", "4876 sps")},
    {"9752", QT_TRANSLATE_NOOP("PellNames", "9752 sps")}};
const EnumTable& TableOf(OmniSymbolRate::EOmniSymbolRate) {
    static constexpr EnumTable table{"EOmniSymbolRate", kOmniSymbolRate, EnumTable::Numeric};
    return table;
}

constexpr EnumTable::Item kPosComputationMode[] = {
    {"sp", QT_TRANSLATE_NOOP("PellNames", "Standalone")},
    {"wad", QT_TRANSLATE_NOOP("PellNames", "SBAS")},
    {"dgps", QT_TRANSLATE_NOOP("PellNames", "Code Differential")},
    {"pd", QT_TRANSLATE_NOOP("PellNames", "RTK")},
    {"ppp", QT_TRANSLATE_NOOP("PellNames", "PPP")},
    {"auto", QT_TRANSLATE_NOOP("PellNames", "Best Available")}};
const EnumTable& TableOf(PosComputationMode::EPosComputationMode) {
    static constexpr EnumTable table{"EPosComputationMode", kPosComputationMode};
    return table;
}

constexpr EnumTable::Item kReceiverBehaviorOnStartUp[] = {
    {"last", QT_TRANSLATE_NOOP("PellNames", "Restore Last Settings")},
    {"factory", QT_TRANSLATE_NOOP("PellNames", "Factory Settings")},
    {"profile", QT_TRANSLATE_NOOP("PellNames", "Load Profile")}};
const EnumTable& TableOf(ReceiverBehaviorOnStartUp::EReceiverBehaviorOnStartUp) {
    static constexpr EnumTable table{"EReceiverBehaviorOnStartUp", kReceiverBehaviorOnStartUp};
    return table;
}

constexpr EnumTable::Item kStopBits[] = {{"1", QT_TRANSLATE_NOOP("PellNames", "1 bit")},
                                         {"2", QT_TRANSLATE_NOOP("PellNames", "2 bits")}};
const EnumTable& TableOf(EStopBits) {
    static constexpr EnumTable table{"EStopBits", kStopBits};
    return table;
}

constexpr EnumTable::Item kKestrelInitializationType[] = {
    {"auto", QT_TRANSLATE_NOOP("PellNames", "Automatic")},
    {"user", QT_TRANSLATE_NOOP("PellNames", "User Defined")},
    {"last", QT_TRANSLATE_NOOP("PellNames", "Last Known")}};
const EnumTable& TableOf(KestrelInitializationType::EKestrelInitializationType) {
    static constexpr EnumTable table{"EKestrelInitializationType", kKestrelInitializationType};
    return table;
}

constexpr EnumTable::Item kAmbiguityFixingLevel[] = {
    {"extralow", QT_TRANSLATE_NOOP("PellNames", "Extra Low")},
    {"low", QT_TRANSLATE_NOOP("PellNames", "Low")},
    {"medium", QT_TRANSLATE_NOOP("PellNames", "Medium")},
    {"high", QT_TRANSLATE_NOOP("PellNames", "High")}};
const EnumTable& TableOf(AmbiguityFixingLevel::EAmbiguityFixingLevel) {
    static constexpr EnumTable table{"EAmbiguityFixingLevel", kAmbiguityFixingLevel};
    return table;
}

constexpr EnumTable::Item kAntenna[] = {{"int", QT_TRANSLATE_NOOP("PellNames", "Internal")},
                                        {"ext", QT_TRANSLATE_NOOP("PellNames", "External")},
                                        {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")}};
const EnumTable& TableOf(Antenna::EAntenna) {
    static constexpr EnumTable table{"EAntenna", kAntenna};
    return table;
}

constexpr EnumTable::Item kBatteryChargeModeLinux[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")},
    {"a", QT_TRANSLATE_NOOP("PellNames", "Battery A")},
    {"b", QT_TRANSLATE_NOOP("PellNames", "Battery B")},
    {"ab", QT_TRANSLATE_NOOP("PellNames", "Batteries A and B")}};
const EnumTable& TableOf(BatteryChargeModeLinux::EBatteryChargeModeLinux) {
    static constexpr EnumTable table{"EBatteryChargeModeLinux", kBatteryChargeModeLinux};
    return table;
}

constexpr EnumTable::Item kCom[] = {{"none", QT_TRANSLATE_NOOP("PellNames", "None")},
                                    {"/dev/ser/a", QT_TRANSLATE_NOOP("PellNames", "Serial A")},
                                    {"/dev/ser/b", QT_TRANSLATE_NOOP("PellNames", "Serial B")},
                                    {"/dev/ser/c", QT_TRANSLATE_NOOP("PellNames", "Serial C")},
                                    {"/dev/ser/d", QT_TRANSLATE_NOOP("PellNames", "Serial D")}};
const EnumTable& TableOf(ECom) {
    static constexpr EnumTable table{"ECom", kCom};
    return table;
}

constexpr EnumTable::Item kComState[] = {{"closed", QT_TRANSLATE_NOOP("PellNames", "Closed")},
                                         {"open", QT_TRANSLATE_NOOP("PellNames", "Open")},
                                         {"busy", QT_TRANSLATE_NOOP("PellNames", "Busy")},
                                         {"error", QT_TRANSLATE_NOOP("PellNames", "Error")}};
const EnumTable& TableOf(ComState::EComState) {
    static constexpr EnumTable table{"EComState", kComState};
    return table;
}

constexpr EnumTable::Item kDev[] = {{"none", QT_TRANSLATE_NOOP("PellNames", "None")},
                                    {"ser", QT_TRANSLATE_NOOP("PellNames", "Serial")},
                                    {"usb", QT_TRANSLATE_NOOP("PellNames", "USB")},
                                    {"tcp", QT_TRANSLATE_NOOP("PellNames", "TCP")},
                                    {"tcpc", QT_TRANSLATE_NOOP("PellNames", "TCP Client")},
                                    {"udp", QT_TRANSLATE_NOOP("PellNames", "UDP")},
                                    {"bth", QT_TRANSLATE_NOOP("PellNames", "Bluetooth")},
                                    {"ble", QT_TRANSLATE_NOOP("PellNames", "Bluetooth LE")},
                                    {"ntrip", QT_TRANSLATE_NOOP("PellNames", "NTRIP")},
                                    {"modem", QT_TRANSLATE_NOOP("PellNames", "Modem")}};
const EnumTable& TableOf(EDev) {
    static constexpr EnumTable table{"EDev", kDev};
    return table;
}

constexpr EnumTable::Item kEmailAuthentication[] = {
    {"none", QT_TRANSLATE_NOOP("PellNames", "None")},
    {"plain", QT_TRANSLATE_NOOP("PellNames", "Plain")},
    {"login", QT_TRANSLATE_NOOP("PellNames", "Login")},
    {"cram-md5", QT_TRANSLATE_NOOP("PellNames", "CRAM-MD5")}};
const EnumTable& TableOf(EmailAuthentication::EEmailAuthentication) {
    static constexpr EnumTable table{"EEmailAuthentication", kEmailAuthentication};
    return table;
}

constexpr EnumTable::Item kExtAntennaStatus[] = {
    {"unknown", QT_TRANSLATE_NOOP("PellNames", "Unknown")},
    {"ok", QT_TRANSLATE_NOOP("PellNames", "OK")},
    {"open", QT_TRANSLATE_NOOP("PellNames", "Open Circuit")},
    {"short", QT_TRANSLATE_NOOP("PellNames", "Short Circuit")},
    {"off", QT_TRANSLATE_NOOP("PellNames", "Not Powered")}};
const EnumTable& TableOf(ExtAntennaStatus::EExtAntennaStatus) {
    static constexpr EnumTable table{"EExtAntennaStatus", kExtAntennaStatus};
    return table;
}

constexpr EnumTable::Item kFrqAmplitude[] = {{"none", QT_TRANSLATE_NOOP("PellNames", "No Signal")},
                                             {"low", QT_TRANSLATE_NOOP("PellNames", "Low")},
                                             {"ok", QT_TRANSLATE_NOOP("PellNames", "Normal")},
                                             {"high", QT_TRANSLATE_NOOP("PellNames", "High")}};
const EnumTable& TableOf(FrqAmplitude::EFrqAmplitude) {
    static constexpr EnumTable table{"EFrqAmplitude", kFrqAmplitude};
    return table;
}

constexpr EnumTable::Item kFrqInput[] = {
    {"int", QT_TRANSLATE_NOOP("PellNames", "Internal Oscillator")},
    {"ext", QT_TRANSLATE_NOOP("PellNames", "External Frequency")}};
const EnumTable& TableOf(FrqInput::EFrqInput) {
    static constexpr EnumTable table{"EFrqInput", kFrqInput};
    return table;
}

constexpr EnumTable::Item kFrqStatus[] = {{"none", QT_TRANSLATE_NOOP("PellNames", "Not Used")},
                                          {"locking", QT_TRANSLATE_NOOP("PellNames", "Locking")},
                                          {"locked", QT_TRANSLATE_NOOP("PellNames", "Locked")},
                                          {"error", QT_TRANSLATE_NOOP("PellNames", "Error")}};
const EnumTable& TableOf(FrqStatus::EFrqStatus) {
    static constexpr EnumTable table{"EFrqStatus", kFrqStatus};
    return table;
}

constexpr EnumTable::Item kIMode[] = {{"none", QT_TRANSLATE_NOOP("PellNames", "None")},
                                      {"echo", QT_TRANSLATE_NOOP("PellNames", "Echo")},
                                      {"cmd", QT_TRANSLATE_NOOP("PellNames", "Commands")},
                                      {"rtcm", QT_TRANSLATE_NOOP("PellNames", "RTCM 2.x")},
                                      {"rtcm3", QT_TRANSLATE_NOOP("PellNames", "RTCM 3.x")},
                                      {"cmr", QT_TRANSLATE_NOOP("PellNames", "CMR")},
                                      {"jps", QT_TRANSLATE_NOOP("PellNames", "JPS")},
                                      {"omni", QT_TRANSLATE_NOOP("PellNames", "OmniSTAR")}};
const EnumTable& TableOf(IMode::EIMode) {
    static constexpr EnumTable table{"EIMode", kIMode};
    return table;
}

constexpr EnumTable::Item kIonoCorrections[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"model", QT_TRANSLATE_NOOP("PellNames", "Broadcast Model")},
    {"sbas", QT_TRANSLATE_NOOP("PellNames", "SBAS Grid")},
    {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")}};
const EnumTable& TableOf(IonoCorrections::EIonoCorrections) {
    static constexpr EnumTable table{"EIonoCorrections", kIonoCorrections};
    return table;
}

constexpr EnumTable::Item kLBandService[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                             {"vbs", QT_TRANSLATE_NOOP("PellNames", "VBS")},
                                             {"hp", QT_TRANSLATE_NOOP("PellNames", "HP")},
                                             {"xp", QT_TRANSLATE_NOOP("PellNames", "XP")},
                                             {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")}};
const EnumTable& TableOf(LBandService::ELBandService) {
    static constexpr EnumTable table{"ELBandService", kLBandService};
    return table;
}

constexpr EnumTable::Item kFarwireClientMode[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"client", QT_TRANSLATE_NOOP("PellNames", "Client")},
    {"relay", QT_TRANSLATE_NOOP("PellNames", "Relay")}};
const EnumTable& TableOf(FarwireClientMode::EFarwireClientMode) {
    static constexpr EnumTable table{"EFarwireClientMode", kFarwireClientMode};
    return table;
}

constexpr EnumTable::Item kFarwireSvcType[] = {{"rtk", QT_TRANSLATE_NOOP("PellNames", "RTK")},
                                               {"dgps", QT_TRANSLATE_NOOP("PellNames", "DGPS")},
                                               {"raw", QT_TRANSLATE_NOOP("PellNames", "Raw Data")}};
const EnumTable& TableOf(FarwireSvcType::EFarwireSvcType) {
    static constexpr EnumTable table{"EFarwireSvcType", kFarwireSvcType};
    return table;
}

constexpr EnumTable::Item kNotificationLevel[] = {
    {"critical", QT_TRANSLATE_NOOP("PellNames", "Critical")},
    {"error", QT_TRANSLATE_NOOP("PellNames", "Error")},
    {"warning", QT_TRANSLATE_NOOP("PellNames", "Warning")},
    {"info", QT_TRANSLATE_NOOP("PellNames", "Information")}};
const EnumTable& TableOf(NotificationLevel::ENotificationLevel) {
    static constexpr EnumTable table{"ENotificationLevel", kNotificationLevel};
    return table;
}

constexpr EnumTable::Item kNtripCasterAuth[] = {
    {"none", QT_TRANSLATE_NOOP("PellNames", "None")},
    {"basic", QT_TRANSLATE_NOOP("PellNames", "Basic")},
    {"digest", QT_TRANSLATE_NOOP("PellNames", "Digest")}};
const EnumTable& TableOf(NtripCasterAuth::ENtripCasterAuth) {
    static constexpr EnumTable table{"ENtripCasterAuth", kNtripCasterAuth};
    return table;
}

constexpr EnumTable::Item kNtripCasterUserGroup[] = {
    {"all", QT_TRANSLATE_NOOP("PellNames", "All Mountpoints")},
    {"group1", QT_TRANSLATE_NOOP("PellNames", "Group 1")},
    {"group2", QT_TRANSLATE_NOOP("PellNames", "Group 2")},
    {"group3", QT_TRANSLATE_NOOP("PellNames", "Group 3")},
    {"group4", QT_TRANSLATE_NOOP("PellNames", "Group 4")}};
const EnumTable& TableOf(NtripCasterUserGroup::ENtripCasterUserGroup) {
    static constexpr EnumTable table{"ENtripCasterUserGroup", kNtripCasterUserGroup};
    return table;
}

constexpr EnumTable::Item kNtripMode[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                          {"client", QT_TRANSLATE_NOOP("PellNames", "Client")},
                                          {"server", QT_TRANSLATE_NOOP("PellNames", "Server")}};
const EnumTable& TableOf(NtripMode::ENtripMode) {
    static constexpr EnumTable table{"ENtripMode", kNtripMode};
    return table;
}

constexpr EnumTable::Item kNtripProtocol[] = {{"v1", QT_TRANSLATE_NOOP("PellNames", "NTRIP 1.0")},
                                              {"v2", QT_TRANSLATE_NOOP("PellNames", "NTRIP 2.0")},
                                              {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")}};
const EnumTable& TableOf(NtripProtocol::ENtripProtocol) {
    static constexpr EnumTable table{"ENtripProtocol", kNtripProtocol};
    return table;
}

constexpr EnumTable::Item kOnOff[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                      {"on", QT_TRANSLATE_NOOP("PellNames", "On")}};
const EnumTable& TableOf(EOnOff) {
    static constexpr EnumTable table{"EOnOff", kOnOff, EnumTable::OnOff};
    return table;
}

constexpr EnumTable::Item kOscillatorOffsetReduction[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"on", QT_TRANSLATE_NOOP("PellNames", "On")},
    {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")}};
const EnumTable& TableOf(OscillatorOffsetReduction::EOscillatorOffsetReduction) {
    static constexpr EnumTable table{"EOscillatorOffsetReduction", kOscillatorOffsetReduction};
    return table;
}

constexpr EnumTable::Item kPPPMode[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                        {"float", QT_TRANSLATE_NOOP("PellNames", "Float")},
                                        {"fixed", QT_TRANSLATE_NOOP("PellNames", "Fixed")}};
const EnumTable& TableOf(PPPMode::EPPPMode) {
    static constexpr EnumTable table{"EPPPMode", kPPPMode};
    return table;
}

constexpr EnumTable::Item kParity[] = {{"N", QT_TRANSLATE_NOOP("PellNames", "None")},
                                       {"E", QT_TRANSLATE_NOOP("PellNames", "Even")},
                                       {"O", QT_TRANSLATE_NOOP("PellNames", "Odd")}};
const EnumTable& TableOf(EParity) {
    static constexpr EnumTable table{"EParity", kParity};
    return table;
}

constexpr EnumTable::Item kPositionOutputMode[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"on", QT_TRANSLATE_NOOP("PellNames", "On")},
    {"backup", QT_TRANSLATE_NOOP("PellNames", "Backup Only")}};
const EnumTable& TableOf(PositionOutputMode::EPositionOutputMode) {
    static constexpr EnumTable table{"EPositionOutputMode", kPositionOutputMode};
    return table;
}

constexpr EnumTable::Item kRTKDynamic[] = {
    {"static", QT_TRANSLATE_NOOP("PellNames", "Static")},
    {"kinematic", QT_TRANSLATE_NOOP("PellNames", "Kinematic")}};
const EnumTable& TableOf(RTKDynamic::ERTKDynamic) {
    static constexpr EnumTable table{"ERTKDynamic", kRTKDynamic};
    return table;
}

constexpr EnumTable::Item kRinexVersion[] = {
    {"2.10", QT_TRANSLATE_NOOP("PellNames", "RINEX 2.10")},
    {"2.11", QT_TRANSLATE_NOOP("PellNames", "RINEX 2.11")},
    {"2.12", QT_TRANSLATE_NOOP("PellNames", "RINEX 2.12")},
    {"3.00", QT_TRANSLATE_NOOP("PellNames", "RINEX 3.00")},
    {"3.01", QT_TRANSLATE_NOOP("PellNames", "RINEX 3.01")},
    {"3.02", QT_TRANSLATE_NOOP("PellNames", "RINEX 3.02")},
    {"3.03", QT_TRANSLATE_NOOP("PellNames", "RINEX 3.03")}};
const EnumTable& TableOf(RinexVersion::ERinexVersion) {
    static constexpr EnumTable table{"ERinexVersion", kRinexVersion};
    return table;
}

constexpr EnumTable::Item kRinexVersionOff[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"2.10", QT_TRANSLATE_NOOP("PellNames", "RINEX 2.10")},
    {"2.11", QT_TRANSLATE_NOOP("PellNames", "RINEX 2.11")},
    {"2.12", QT_TRANSLATE_NOOP("PellNames", "RINEX 2.12")},
    {"3.00", QT_TRANSLATE_NOOP("PellNames", "RINEX 3.00")},
    {"3.01", QT_TRANSLATE_NOOP("PellNames", "RINEX 3.01")},
    {"3.02", QT_TRANSLATE_NOOP("PellNames", "RINEX 3.02")},
    {"3.03", QT_TRANSLATE_NOOP("PellNames", "RINEX 3.03")}};
const EnumTable& TableOf(RinexVersionOff::ERinexVersionOff) {
    static constexpr EnumTable table{"ERinexVersionOff", kRinexVersionOff};
    return table;
}

constexpr EnumTable::Item kRinexZIP[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"gzip", QT_TRANSLATE_NOOP("PellNames", "GZIP")},
    {"hatanaka", QT_TRANSLATE_NOOP("PellNames", "Hatanaka + GZIP")}};
const EnumTable& TableOf(RinexZIP::ERinexZIP) {
    static constexpr EnumTable table{"ERinexZIP", kRinexZIP};
    return table;
}

constexpr EnumTable::Item kSignalRefTime[] = {{"gps", QT_TRANSLATE_NOOP("PellNames", "GPS")},
                                              {"utc", QT_TRANSLATE_NOOP("PellNames", "UTC")},
                                              {"glo", QT_TRANSLATE_NOOP("PellNames", "GLONASS")},
                                              {"gal", QT_TRANSLATE_NOOP("PellNames", "Galileo")},
                                              {"bds", QT_TRANSLATE_NOOP("PellNames", "BeiDou")},
                                              {"loc", QT_TRANSLATE_NOOP("PellNames", "Local")}};
const EnumTable& TableOf(SignalRefTime::ESignalRefTime) {
    static constexpr EnumTable table{"ESignalRefTime", kSignalRefTime};
    return table;
}

constexpr EnumTable::Item kSignalSync[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                           {"once", QT_TRANSLATE_NOOP("PellNames", "Once")},
                                           {"always", QT_TRANSLATE_NOOP("PellNames", "Repeat")}};
const EnumTable& TableOf(SignalSync::ESignalSync) {
    static constexpr EnumTable table{"ESignalSync", kSignalSync};
    return table;
}

constexpr EnumTable::Item kSlotState[] = {{"empty", QT_TRANSLATE_NOOP("PellNames", "Empty")},
                                          {"present", QT_TRANSLATE_NOOP("PellNames", "Present")},
                                          {"active", QT_TRANSLATE_NOOP("PellNames", "Active")},
                                          {"error", QT_TRANSLATE_NOOP("PellNames", "Error")}};
const EnumTable& TableOf(SlotState::ESlotState) {
    static constexpr EnumTable table{"ESlotState", kSlotState};
    return table;
}

constexpr EnumTable::Item kWlanMode[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                         {"client", QT_TRANSLATE_NOOP("PellNames", "Client")},
                                         {"ap", QT_TRANSLATE_NOOP("PellNames", "Access Point")}};
const EnumTable& TableOf(WlanMode::EWlanMode) {
    static constexpr EnumTable table{"EWlanMode", kWlanMode};
    return table;
}

constexpr EnumTable::Item kYesNo[] = {{"no", QT_TRANSLATE_NOOP("PellNames", "No")},
                                      {"yes", QT_TRANSLATE_NOOP("PellNames", "Yes")}};
const EnumTable& TableOf(YesNo::EYesNo) {
    static constexpr EnumTable table{"EYesNo", kYesNo};
    return table;
}

constexpr EnumTable::Item kYN[] = {{"n", QT_TRANSLATE_NOOP("PellNames", "No")},
                                   {"y", QT_TRANSLATE_NOOP("PellNames", "Yes")}};
const EnumTable& TableOf(YN::EYN) {
    static constexpr EnumTable table{"EYN", kYN};
    return table;
}

constexpr EnumTable::Item kOffOnAuto[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                          {"on", QT_TRANSLATE_NOOP("PellNames", "On")},
                                          {"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")}};
const EnumTable& TableOf(OffOnAuto::EOffOnAuto) {
    static constexpr EnumTable table{"EOffOnAuto", kOffOnAuto};
    return table;
}

constexpr EnumTable::Item kEdge[] = {{"rise", QT_TRANSLATE_NOOP("PellNames", "Rising")},
                                     {"fall", QT_TRANSLATE_NOOP("PellNames", "Falling")}};
const EnumTable& TableOf(Edge::EEdge) {
    static constexpr EnumTable table{"EEdge", kEdge};
    return table;
}

constexpr EnumTable::Item kRTKMode[] = {
    {"delay", QT_TRANSLATE_NOOP("PellNames", "Delay")},
    {"extrap", QT_TRANSLATE_NOOP("PellNames", "Extrapolation")}};
const EnumTable& TableOf(RTKMode::ERTKMode) {
    static constexpr EnumTable table{"ERTKMode", kRTKMode};
    return table;
}

constexpr EnumTable::Item kCorrMode[] = {
    {"normal", QT_TRANSLATE_NOOP("PellNames", "Normal")},
    {"mpnew", QT_TRANSLATE_NOOP("PellNames", "Multipath Reduction")}};
const EnumTable& TableOf(CorrMode::ECorrMode) {
    static constexpr EnumTable table{"ECorrMode", kCorrMode};
    return table;
}

constexpr EnumTable::Item kDistMode[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                         {"fixed", QT_TRANSLATE_NOOP("PellNames", "Fixed")},
                                         {"calc", QT_TRANSLATE_NOOP("PellNames", "Calculated")}};
const EnumTable& TableOf(DistMode::EDistMode) {
    static constexpr EnumTable table{"EDistMode", kDistMode};
    return table;
}

constexpr EnumTable::Item kHeadingMode[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
    {"base", QT_TRANSLATE_NOOP("PellNames", "Moving Base")},
    {"rover", QT_TRANSLATE_NOOP("PellNames", "Heading Rover")}};
const EnumTable& TableOf(HeadingMode::EHeadingMode) {
    static constexpr EnumTable table{"EHeadingMode", kHeadingMode};
    return table;
}

constexpr EnumTable::Item kOMode[] = {{"none", QT_TRANSLATE_NOOP("PellNames", "None")},
                                      {"jps", QT_TRANSLATE_NOOP("PellNames", "JPS")},
                                      {"nmea", QT_TRANSLATE_NOOP("PellNames", "NMEA")},
                                      {"rtcm", QT_TRANSLATE_NOOP("PellNames", "RTCM 2.x")},
                                      {"rtcm3", QT_TRANSLATE_NOOP("PellNames", "RTCM 3.x")},
                                      {"cmr", QT_TRANSLATE_NOOP("PellNames", "CMR")},
                                      {"user", QT_TRANSLATE_NOOP("PellNames", "User Defined")}};
const EnumTable& TableOf(OMode::EOMode) {
    static constexpr EnumTable table{"EOMode", kOMode};
    return table;
}

constexpr EnumTable::Item kNtripState[] = {
    {"off", QT_TRANSLATE_NOOP("PellNames", "Ntrip is disabled")},
    {"wait", QT_TRANSLATE_NOOP("PellNames", "Trying to connect")},
    {"data", QT_TRANSLATE_NOOP("PellNames", "Getting corrections")},
    {"sleep", QT_TRANSLATE_NOOP("PellNames", "Unable to connect")}};
const EnumTable& TableOf(NtripState::ENtripState) {
    static constexpr EnumTable table{"ENtripState", kNtripState};
    return table;
}

constexpr EnumTable::Item kNtripInit[] = {
    {"none", QT_TRANSLATE_NOOP("PellNames", "None")},
    {"gga", QT_TRANSLATE_NOOP("PellNames", "NMEA GGA")},
    {"last", QT_TRANSLATE_NOOP("PellNames", "Last Position")}};
const EnumTable& TableOf(NtripInit::ENtripInit) {
    static constexpr EnumTable table{"ENtripInit", kNtripInit};
    return table;
}

constexpr EnumTable::Item kPppMode[] = {{"off", QT_TRANSLATE_NOOP("PellNames", "Off")},
                                        {"gprs", QT_TRANSLATE_NOOP("PellNames", "GPRS")},
                                        {"csd", QT_TRANSLATE_NOOP("PellNames", "CSD")}};
const EnumTable& TableOf(PppMode::EPppMode) {
    static constexpr EnumTable table{"EPppMode", kPppMode};
    return table;
}

constexpr EnumTable::Item kPppState[] = {
    {"disconnected", QT_TRANSLATE_NOOP("PellNames", "Disconnected")},
    {"connecting", QT_TRANSLATE_NOOP("PellNames", "Connecting")},
    {"connected", QT_TRANSLATE_NOOP("PellNames", "Connected")}};
const EnumTable& TableOf(PppState::EPppState) {
    static constexpr EnumTable table{"EPppState", kPppState};
    return table;
}

constexpr EnumTable::Item kInet[] = {{"auto", QT_TRANSLATE_NOOP("PellNames", "Auto")},
                                     {"eth", QT_TRANSLATE_NOOP("PellNames", "Ethernet")},
                                     {"wlan", QT_TRANSLATE_NOOP("PellNames", "Wireless LAN")},
                                     {"ppp", QT_TRANSLATE_NOOP("PellNames", "Cellular")}};
const EnumTable& TableOf(Inet::EInet) {
    static constexpr EnumTable table{"EInet", kInet};
    return table;
}

} // namespace rxio::vex

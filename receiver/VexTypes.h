#pragma once

#include "lib/Translator.h"
#include "lib/pell_export.h"

#include <QString>
#include <cstdint>
#include <span>

// Receiver enumerations and their wrappers between the receiver's text ("print" replies, "set"
// values) and the text shown to the user.
//
// Every enumeration has a fixed 32-bit underlying type: the wrappers store it as such, and a value
// outside the table stays a valid value that simply shows as an empty text.
namespace rxio::vex {

// The receiver texts and display names of one enumeration in value order, and how a receiver
// text is read.
struct PELL_EXPORT EnumTable {
    enum EParsing {
        Exact,   // equal to a receiver text, case-sensitive
        Numeric, // the same decimal number as a receiver text
        OnOff,   // On when the text holds "on" but not "off"
    };
    struct Item {
        const char* text; // receiver text
        const char* name; // display name, English; the catalog translates it
    };

    const char* name; // the enumeration's name without its record, e.g. "EAntiJamming"
    std::span<const Item> items;
    EParsing parsing = Exact;

    int Count() const { return static_cast<int>(items.size()); }
    // The value that `text` names, or `fallback` when it names none.
    int Parse(const QString& text, int fallback) const;
    // Empty for a value outside the table.
    QString Text(int value) const;
    QString Name(int value) const;
};

struct AntiJamming {
    enum EAntiJamming : std::int32_t { Gps, Glonass, L1, L2, Auto, Off, Manual };
};
PELL_EXPORT const EnumTable& TableOf(AntiJamming::EAntiJamming);

enum EBaudRate : std::int32_t {
    Baud300,
    Baud600,
    Baud1200,
    Baud2400,
    Baud4800,
    Baud9600,
    Baud19200,
    Baud38400,
    Baud57600,
    Baud115200,
    Baud153600,
    Baud230400,
    Baud460800,
    Baud921600,
};
PELL_EXPORT const EnumTable& TableOf(EBaudRate);

struct ButtonDynamicMode {
    enum EButtonDynamicMode : std::int32_t { Off, Static, Kinematic, Toggle };
};
PELL_EXPORT const EnumTable& TableOf(ButtonDynamicMode::EButtonDynamicMode);

enum EByteSize : std::int32_t { ByteSize5, ByteSize6, ByteSize7, ByteSize8 };
PELL_EXPORT const EnumTable& TableOf(EByteSize);

struct DIONMode {
    enum EDIONMode : std::int32_t { Off, On, Auto };
};
PELL_EXPORT const EnumTable& TableOf(DIONMode::EDIONMode);

struct ELCCalibrationMode {
    enum EELCCalibrationMode : std::int32_t { Off, Level, Compass, Full };
};
PELL_EXPORT const EnumTable& TableOf(ELCCalibrationMode::EELCCalibrationMode);

struct FnKeyMode {
    enum EFnKeyMode : std::int32_t { NoAction, Logging, BaseRover, ReinitialiseRtk };
};
PELL_EXPORT const EnumTable& TableOf(FnKeyMode::EFnKeyMode);

struct LocalBluetoothMode {
    enum ELocalBluetoothMode : std::int32_t { Off, Server, Client };
};
PELL_EXPORT const EnumTable& TableOf(LocalBluetoothMode::ELocalBluetoothMode);

enum EMMode : std::int32_t { MModeOff, MModeAuto, MModeManual };
PELL_EXPORT const EnumTable& TableOf(EMMode);

enum EMState : std::int32_t {
    MStateOff,
    MStateInit,
    MStateReady,
    MStateDialing,
    MStateConnected,
    MStateError,
};
PELL_EXPORT const EnumTable& TableOf(EMState);

enum EModem : std::int32_t { ModemNone, ModemGsm, ModemUmts, ModemLte, ModemUhf };
PELL_EXPORT const EnumTable& TableOf(EModem);

struct OmniSymbolRate {
    enum EOmniSymbolRate : std::int32_t { Sps609, Sps1219, Sps2438, Sps4876, Sps9752 };
};
PELL_EXPORT const EnumTable& TableOf(OmniSymbolRate::EOmniSymbolRate);

struct PosComputationMode {
    enum EPosComputationMode : std::int32_t { Standalone, Sbas, Dgps, Rtk, Ppp, Auto };
};
PELL_EXPORT const EnumTable& TableOf(PosComputationMode::EPosComputationMode);

struct ReceiverBehaviorOnStartUp {
    enum EReceiverBehaviorOnStartUp : std::int32_t { Last, Factory, Profile };
};
PELL_EXPORT const EnumTable& TableOf(ReceiverBehaviorOnStartUp::EReceiverBehaviorOnStartUp);

enum EStopBits : std::int32_t { StopBits1, StopBits2 };
PELL_EXPORT const EnumTable& TableOf(EStopBits);

struct KestrelInitializationType {
    enum EKestrelInitializationType : std::int32_t { Auto, User, Last };
};
PELL_EXPORT const EnumTable& TableOf(KestrelInitializationType::EKestrelInitializationType);

struct AmbiguityFixingLevel {
    enum EAmbiguityFixingLevel : std::int32_t { ExtraLow, Low, Medium, High };
};
PELL_EXPORT const EnumTable& TableOf(AmbiguityFixingLevel::EAmbiguityFixingLevel);

struct Antenna {
    enum EAntenna : std::int32_t { Internal, External, Auto };
};
PELL_EXPORT const EnumTable& TableOf(Antenna::EAntenna);

struct BatteryChargeModeLinux {
    enum EBatteryChargeModeLinux : std::int32_t { Off, Auto, BatteryA, BatteryB, BatteriesAB };
};
PELL_EXPORT const EnumTable& TableOf(BatteryChargeModeLinux::EBatteryChargeModeLinux);

enum ECom : std::int32_t { ComNone, ComSerialA, ComSerialB, ComSerialC, ComSerialD };
PELL_EXPORT const EnumTable& TableOf(ECom);

struct ComState {
    enum EComState : std::int32_t { Closed, Open, Busy, Error };
};
PELL_EXPORT const EnumTable& TableOf(ComState::EComState);

enum EDev : std::int32_t {
    DevNone,
    DevSerial,
    DevUsb,
    DevTcp,
    DevTcpClient,
    DevUdp,
    DevBluetooth,
    DevBluetoothLE,
    DevNtrip,
    DevModem,
};
PELL_EXPORT const EnumTable& TableOf(EDev);

struct EmailAuthentication {
    enum EEmailAuthentication : std::int32_t { NoAuth, Plain, Login, CramMd5 };
};
PELL_EXPORT const EnumTable& TableOf(EmailAuthentication::EEmailAuthentication);

struct ExtAntennaStatus {
    enum EExtAntennaStatus : std::int32_t { Unknown, Ok, OpenCircuit, ShortCircuit, NotPowered };
};
PELL_EXPORT const EnumTable& TableOf(ExtAntennaStatus::EExtAntennaStatus);

struct FrqAmplitude {
    enum EFrqAmplitude : std::int32_t { NoSignal, Low, Normal, High };
};
PELL_EXPORT const EnumTable& TableOf(FrqAmplitude::EFrqAmplitude);

struct FrqInput {
    enum EFrqInput : std::int32_t { Internal, External };
};
PELL_EXPORT const EnumTable& TableOf(FrqInput::EFrqInput);

struct FrqStatus {
    enum EFrqStatus : std::int32_t { NotUsed, Locking, Locked, Error };
};
PELL_EXPORT const EnumTable& TableOf(FrqStatus::EFrqStatus);

struct IMode {
    enum EIMode : std::int32_t { NoInput, Echo, Commands, Rtcm2, Rtcm3, Cmr, Jps, OmniStar };
};
PELL_EXPORT const EnumTable& TableOf(IMode::EIMode);

struct IonoCorrections {
    enum EIonoCorrections : std::int32_t { Off, Model, Sbas, Auto };
};
PELL_EXPORT const EnumTable& TableOf(IonoCorrections::EIonoCorrections);

struct LBandService {
    enum ELBandService : std::int32_t { Off, Vbs, Hp, Xp, Auto };
};
PELL_EXPORT const EnumTable& TableOf(LBandService::ELBandService);

struct FarwireClientMode {
    enum EFarwireClientMode : std::int32_t { Off, Client, Relay };
};
PELL_EXPORT const EnumTable& TableOf(FarwireClientMode::EFarwireClientMode);

struct FarwireSvcType {
    enum EFarwireSvcType : std::int32_t { Rtk, Dgps, Raw };
};
PELL_EXPORT const EnumTable& TableOf(FarwireSvcType::EFarwireSvcType);

struct NotificationLevel {
    enum ENotificationLevel : std::int32_t { Critical, Error, Warning, Info };
};
PELL_EXPORT const EnumTable& TableOf(NotificationLevel::ENotificationLevel);

struct NtripCasterAuth {
    enum ENtripCasterAuth : std::int32_t { NoAuth, Basic, Digest };
};
PELL_EXPORT const EnumTable& TableOf(NtripCasterAuth::ENtripCasterAuth);

struct NtripCasterUserGroup {
    enum ENtripCasterUserGroup : std::int32_t { All, Group1, Group2, Group3, Group4 };
};
PELL_EXPORT const EnumTable& TableOf(NtripCasterUserGroup::ENtripCasterUserGroup);

struct NtripMode {
    enum ENtripMode : std::int32_t { Off, Client, Server };
};
PELL_EXPORT const EnumTable& TableOf(NtripMode::ENtripMode);

struct NtripProtocol {
    enum ENtripProtocol : std::int32_t { V1, V2, Auto };
};
PELL_EXPORT const EnumTable& TableOf(NtripProtocol::ENtripProtocol);

struct OscillatorOffsetReduction {
    enum EOscillatorOffsetReduction : std::int32_t { Off, On, Auto };
};
PELL_EXPORT const EnumTable& TableOf(OscillatorOffsetReduction::EOscillatorOffsetReduction);

struct PPPMode {
    enum EPPPMode : std::int32_t { Off, Float, Fixed };
};
PELL_EXPORT const EnumTable& TableOf(PPPMode::EPPPMode);

enum EParity : std::int32_t { ParityNone, ParityEven, ParityOdd };
PELL_EXPORT const EnumTable& TableOf(EParity);

struct PositionOutputMode {
    enum EPositionOutputMode : std::int32_t { Off, On, BackupOnly };
};
PELL_EXPORT const EnumTable& TableOf(PositionOutputMode::EPositionOutputMode);

struct RTKDynamic {
    enum ERTKDynamic : std::int32_t { Static, Kinematic };
};
PELL_EXPORT const EnumTable& TableOf(RTKDynamic::ERTKDynamic);

struct RinexVersion {
    enum ERinexVersion : std::int32_t { V210, V211, V212, V300, V301, V302, V303 };
};
PELL_EXPORT const EnumTable& TableOf(RinexVersion::ERinexVersion);

struct RinexVersionOff {
    enum ERinexVersionOff : std::int32_t { Off, V210, V211, V212, V300, V301, V302, V303 };
};
PELL_EXPORT const EnumTable& TableOf(RinexVersionOff::ERinexVersionOff);

struct RinexZIP {
    enum ERinexZIP : std::int32_t { Off, Gzip, HatanakaGzip };
};
PELL_EXPORT const EnumTable& TableOf(RinexZIP::ERinexZIP);

struct SignalRefTime {
    enum ESignalRefTime : std::int32_t { Gps, Utc, Glonass, Galileo, BeiDou, Local };
};
PELL_EXPORT const EnumTable& TableOf(SignalRefTime::ESignalRefTime);

struct SignalSync {
    enum ESignalSync : std::int32_t { Off, Once, Repeat };
};
PELL_EXPORT const EnumTable& TableOf(SignalSync::ESignalSync);

struct SlotState {
    enum ESlotState : std::int32_t { Empty, Present, Active, Error };
};
PELL_EXPORT const EnumTable& TableOf(SlotState::ESlotState);

struct WlanMode {
    enum EWlanMode : std::int32_t { Off, Client, AccessPoint };
};
PELL_EXPORT const EnumTable& TableOf(WlanMode::EWlanMode);

struct YesNo {
    enum EYesNo : std::int32_t { No, Yes };
};
PELL_EXPORT const EnumTable& TableOf(YesNo::EYesNo);

struct YN {
    enum EYN : std::int32_t { No, Yes };
};
PELL_EXPORT const EnumTable& TableOf(YN::EYN);

struct OffOnAuto {
    enum EOffOnAuto : std::int32_t { Off, On, Auto };
};
PELL_EXPORT const EnumTable& TableOf(OffOnAuto::EOffOnAuto);

struct Edge {
    enum EEdge : std::int32_t { Rise, Fall };
};
PELL_EXPORT const EnumTable& TableOf(Edge::EEdge);

struct RTKMode {
    enum ERTKMode : std::int32_t { Delay, Extrapolation };
};
PELL_EXPORT const EnumTable& TableOf(RTKMode::ERTKMode);

struct CorrMode {
    enum ECorrMode : std::int32_t { Normal, MultipathReduction };
};
PELL_EXPORT const EnumTable& TableOf(CorrMode::ECorrMode);

struct DistMode {
    enum EDistMode : std::int32_t { Off, Fixed, Calculated };
};
PELL_EXPORT const EnumTable& TableOf(DistMode::EDistMode);

struct HeadingMode {
    enum EHeadingMode : std::int32_t { Off, MovingBase, HeadingRover };
};
PELL_EXPORT const EnumTable& TableOf(HeadingMode::EHeadingMode);

struct OMode {
    enum EOMode : std::int32_t { None, Jps, Nmea, Rtcm, Rtcm3, Cmr, User };
};
PELL_EXPORT const EnumTable& TableOf(OMode::EOMode);

struct NtripState {
    enum ENtripState : std::int32_t { Off, Wait, Data, Sleep };
};
PELL_EXPORT const EnumTable& TableOf(NtripState::ENtripState);

struct NtripInit {
    enum ENtripInit : std::int32_t { None, Gga, Last };
};
PELL_EXPORT const EnumTable& TableOf(NtripInit::ENtripInit);

struct PppMode {
    enum EPppMode : std::int32_t { Off, Gprs, Csd };
};
PELL_EXPORT const EnumTable& TableOf(PppMode::EPppMode);

struct PppState {
    enum EPppState : std::int32_t { Disconnected, Connecting, Connected };
};
PELL_EXPORT const EnumTable& TableOf(PppState::EPppState);

struct Inet {
    enum EInet : std::int32_t { Auto, Ethernet, Wlan, Ppp };
};
PELL_EXPORT const EnumTable& TableOf(Inet::EInet);

// Last, so that no record's own Off or On is declared in its shadow.
enum EOnOff : std::int32_t { Off = 0, On = 1 };
PELL_EXPORT const EnumTable& TableOf(EOnOff);

// One value of enumeration E. A receiver text that names no value gives the fallback N.
//
// The plain form shows a value by its English display name, untranslated: readable, and the same
// in every language. The FN form below translates it.
template <class E, int N> class CReceiverEnumWrapper {
    static_assert(sizeof(E) == sizeof(std::int32_t));

public:
    using Enum = E;
    static constexpr E kFallback = static_cast<E>(N);
    static constexpr bool kTranslated = false;

    CReceiverEnumWrapper(E value = kFallback) : m_value(value) {}

    virtual CReceiverEnumWrapper& FromReceiverString(const QString& text) {
        m_value = static_cast<E>(Table().Parse(text, N));
        return *this;
    }
    virtual QString ToReceiverString() const { return Table().Text(m_value); }
    virtual QString ToDisplayString() const { return DisplayText(m_value); }
    // Declared after the operations, which keep the first three slots of the virtual table.
    virtual ~CReceiverEnumWrapper() = default;

    E Value() const { return m_value; }
    void SetValue(E value) { m_value = value; }

    static const EnumTable& Table() { return TableOf(E{}); }
    // For choice lists: values 0 .. Count() - 1 in value order, each with its DisplayText.
    static int Count() { return Table().Count(); }
    static QString DisplayText(E value) { return Table().Name(value); }

private:
    E m_value;
};

// The "friendly name" form: the display name in the user's language.
template <class E, int N> class CReceiverEnumWrapperFN : public CReceiverEnumWrapper<E, N> {
    using Base = CReceiverEnumWrapper<E, N>;

public:
    using Base::Base;
    static constexpr bool kTranslated = true;

    QString ToDisplayString() const override { return DisplayText(this->Value()); }

    static QString DisplayText(E value) {
        return ulm_std::CTranslatorInstance::Ref().XlateEx(Base::DisplayText(value));
    }
};

using CAntiJammingWrapper = CReceiverEnumWrapper<AntiJamming::EAntiJamming, 4>;
using CBaudRateWrapper = CReceiverEnumWrapper<EBaudRate, 9>;
using CButtonDynamicModeWrapper = CReceiverEnumWrapper<ButtonDynamicMode::EButtonDynamicMode, 0>;
using CByteSizeWrapper = CReceiverEnumWrapper<EByteSize, 3>;
using CDIONModeWrapper = CReceiverEnumWrapper<DIONMode::EDIONMode, 0>;
using CELCCalibrationModeWrapper = CReceiverEnumWrapper<ELCCalibrationMode::EELCCalibrationMode, 0>;
using CFnKeyModeWrapper = CReceiverEnumWrapper<FnKeyMode::EFnKeyMode, 0>;
using CLocalBluetoothModeWrapper = CReceiverEnumWrapper<LocalBluetoothMode::ELocalBluetoothMode, 0>;
using CMModeWrapper = CReceiverEnumWrapper<EMMode, 0>;
using CMStateWrapper = CReceiverEnumWrapper<EMState, 0>;
using CModemWrapper = CReceiverEnumWrapper<EModem, 0>;
using COmniSymbolRateWrapper = CReceiverEnumWrapper<OmniSymbolRate::EOmniSymbolRate, 2>;
using CPosComputationModeWrapper = CReceiverEnumWrapper<PosComputationMode::EPosComputationMode, 0>;
using CReceiverBehaviorOnStartUpWrapper =
    CReceiverEnumWrapper<ReceiverBehaviorOnStartUp::EReceiverBehaviorOnStartUp, 0>;
using CStopBitsWrapper = CReceiverEnumWrapper<EStopBits, 0>;
using CKestrelInitializationTypeWrapper =
    CReceiverEnumWrapper<KestrelInitializationType::EKestrelInitializationType, 0>;
using CRinexVersionWrapper = CReceiverEnumWrapper<RinexVersion::ERinexVersion, 5>;

using CAmbiguityFixingLevelWrapperFN =
    CReceiverEnumWrapperFN<AmbiguityFixingLevel::EAmbiguityFixingLevel, 2>;
using CAntennaWrapperFN = CReceiverEnumWrapperFN<Antenna::EAntenna, 2>;
using CBatteryChargeModeLinuxWrapperFN =
    CReceiverEnumWrapperFN<BatteryChargeModeLinux::EBatteryChargeModeLinux, 1>;
using CComWrapperFN = CReceiverEnumWrapperFN<ECom, 0>;
using CComStateWrapperFN = CReceiverEnumWrapperFN<ComState::EComState, 0>;
using CDevWrapperFN = CReceiverEnumWrapperFN<EDev, 0>;
using CEmailAuthenticationWrapperFN =
    CReceiverEnumWrapperFN<EmailAuthentication::EEmailAuthentication, 0>;
using CExtAntennaStatusWrapperFN = CReceiverEnumWrapperFN<ExtAntennaStatus::EExtAntennaStatus, 0>;
using CFrqAmplitudeWrapperFN = CReceiverEnumWrapperFN<FrqAmplitude::EFrqAmplitude, 0>;
using CFrqInputWrapperFN = CReceiverEnumWrapperFN<FrqInput::EFrqInput, 0>;
using CFrqStatusWrapperFN = CReceiverEnumWrapperFN<FrqStatus::EFrqStatus, 0>;
using CIModeWrapperFN = CReceiverEnumWrapperFN<IMode::EIMode, 0>;
using CIonoCorrectionsWrapperFN = CReceiverEnumWrapperFN<IonoCorrections::EIonoCorrections, 0>;
using CLBandServiceWrapperFN = CReceiverEnumWrapperFN<LBandService::ELBandService, 0>;
using CFarwireClientModeWrapperFN =
    CReceiverEnumWrapperFN<FarwireClientMode::EFarwireClientMode, 0>;
using CFarwireSvcTypeWrapperFN = CReceiverEnumWrapperFN<FarwireSvcType::EFarwireSvcType, 0>;
using CNotificationLevelWrapperFN =
    CReceiverEnumWrapperFN<NotificationLevel::ENotificationLevel, 2>;
using CNtripCasterAuthWrapperFN = CReceiverEnumWrapperFN<NtripCasterAuth::ENtripCasterAuth, 0>;
using CNtripCasterUserGroupWrapperFN =
    CReceiverEnumWrapperFN<NtripCasterUserGroup::ENtripCasterUserGroup, 0>;
using CNtripModeWrapperFN = CReceiverEnumWrapperFN<NtripMode::ENtripMode, 0>;
using CNtripProtocolWrapperFN = CReceiverEnumWrapperFN<NtripProtocol::ENtripProtocol, 0>;
using COnOffWrapperFN = CReceiverEnumWrapperFN<EOnOff, 0>;
using COscillatorOffsetReductionWrapperFN =
    CReceiverEnumWrapperFN<OscillatorOffsetReduction::EOscillatorOffsetReduction, 0>;
using CPPPModeWrapperFN = CReceiverEnumWrapperFN<PPPMode::EPPPMode, 0>;
using CParityWrapperFN = CReceiverEnumWrapperFN<EParity, 0>;
using CPositionOutputModeWrapperFN =
    CReceiverEnumWrapperFN<PositionOutputMode::EPositionOutputMode, 1>;
using CRTKDynamicWrapperFN = CReceiverEnumWrapperFN<RTKDynamic::ERTKDynamic, 0>;
using CRinexVersionOffWrapperFN = CReceiverEnumWrapperFN<RinexVersionOff::ERinexVersionOff, 0>;
using CRinexZIPWrapperFN = CReceiverEnumWrapperFN<RinexZIP::ERinexZIP, 0>;
using CSignalRefTimeWrapperFN = CReceiverEnumWrapperFN<SignalRefTime::ESignalRefTime, 0>;
using CSignalSyncWrapperFN = CReceiverEnumWrapperFN<SignalSync::ESignalSync, 0>;
using CSlotStateWrapperFN = CReceiverEnumWrapperFN<SlotState::ESlotState, 0>;
using CWlanModeWrapperFN = CReceiverEnumWrapperFN<WlanMode::EWlanMode, 0>;
using CYesNoWrapperFN = CReceiverEnumWrapperFN<YesNo::EYesNo, 0>;
using CYNWrapperFN = CReceiverEnumWrapperFN<YN::EYN, 0>;
using COffOnAutoWrapperFN = CReceiverEnumWrapperFN<OffOnAuto::EOffOnAuto, 0>;
using CEdgeWrapperFN = CReceiverEnumWrapperFN<Edge::EEdge, 0>;
using CRTKModeWrapperFN = CReceiverEnumWrapperFN<RTKMode::ERTKMode, 1>;
using CCorrModeWrapperFN = CReceiverEnumWrapperFN<CorrMode::ECorrMode, 0>;
using CDistModeWrapperFN = CReceiverEnumWrapperFN<DistMode::EDistMode, 0>;
using CHeadingModeWrapperFN = CReceiverEnumWrapperFN<HeadingMode::EHeadingMode, 0>;
using COModeWrapperFN = CReceiverEnumWrapperFN<OMode::EOMode, 0>;
using CNtripStateWrapperFN = CReceiverEnumWrapperFN<NtripState::ENtripState, 0>;
using CNtripInitWrapperFN = CReceiverEnumWrapperFN<NtripInit::ENtripInit, 0>;
using CPppModeWrapperFN = CReceiverEnumWrapperFN<PppMode::EPppMode, 0>;
using CPppStateWrapperFN = CReceiverEnumWrapperFN<PppState::EPppState, 0>;
using CInetWrapperFN = CReceiverEnumWrapperFN<Inet::EInet, 0>;

template <class... Wrappers> struct WrapperList {};

// Every wrapper above, for code that walks them all (checks against the receiver model).
using AllReceiverEnumWrappers = WrapperList<
    CAntiJammingWrapper, CBaudRateWrapper, CButtonDynamicModeWrapper, CByteSizeWrapper,
    CDIONModeWrapper, CELCCalibrationModeWrapper, CFnKeyModeWrapper, CLocalBluetoothModeWrapper,
    CMModeWrapper, CMStateWrapper, CModemWrapper, COmniSymbolRateWrapper,
    CPosComputationModeWrapper, CReceiverBehaviorOnStartUpWrapper, CStopBitsWrapper,
    CKestrelInitializationTypeWrapper, CRinexVersionWrapper, CAmbiguityFixingLevelWrapperFN,
    CAntennaWrapperFN, CBatteryChargeModeLinuxWrapperFN, CComWrapperFN, CComStateWrapperFN,
    CDevWrapperFN, CEmailAuthenticationWrapperFN, CExtAntennaStatusWrapperFN,
    CFrqAmplitudeWrapperFN, CFrqInputWrapperFN, CFrqStatusWrapperFN, CIModeWrapperFN,
    CIonoCorrectionsWrapperFN, CLBandServiceWrapperFN, CFarwireClientModeWrapperFN,
    CFarwireSvcTypeWrapperFN, CNotificationLevelWrapperFN, CNtripCasterAuthWrapperFN,
    CNtripCasterUserGroupWrapperFN, CNtripModeWrapperFN, CNtripProtocolWrapperFN, COnOffWrapperFN,
    COscillatorOffsetReductionWrapperFN, CPPPModeWrapperFN, CParityWrapperFN,
    CPositionOutputModeWrapperFN, CRTKDynamicWrapperFN, CRinexVersionOffWrapperFN,
    CRinexZIPWrapperFN, CSignalRefTimeWrapperFN, CSignalSyncWrapperFN, CSlotStateWrapperFN,
    CWlanModeWrapperFN, CYesNoWrapperFN, CYNWrapperFN, COffOnAutoWrapperFN, CEdgeWrapperFN,
    CRTKModeWrapperFN, CCorrModeWrapperFN, CDistModeWrapperFN, CHeadingModeWrapperFN,
    COModeWrapperFN, CNtripStateWrapperFN, CNtripInitWrapperFN, CPppModeWrapperFN,
    CPppStateWrapperFN, CInetWrapperFN>;

} // namespace rxio::vex

#pragma once

// Ids of the library's string table. Numbers below 61000 are the ones hosts and translators have
// always used; the library's own additions start at 61000.
namespace pell::ids {

constexpr unsigned VersionFormat = 1;
constexpr unsigned North = 3169;
constexpr unsigned South = 3170;
constexpr unsigned East = 3171;
constexpr unsigned West = 3172;
constexpr unsigned UnpoweredReceiver = 3214;
constexpr unsigned MetreUnit = 3220;
constexpr unsigned UnpoweredModem = 3247;
constexpr unsigned BluetoothDisconnected = 3365;
constexpr unsigned WrongName = 3370;
constexpr unsigned LongApplicationName = 3439;
constexpr unsigned UnpoweredReceiverBackpack = 3464;
constexpr unsigned ShortApplicationName = 57344;

constexpr unsigned WinErrorFormat = 61000;
constexpr unsigned ErrorSourceLine = 61001;
constexpr unsigned ErrorSourceTag = 61002;
constexpr unsigned CommErrorCommand = 61003;
constexpr unsigned CommErrorReply = 61004;
constexpr unsigned UnknownSystemError = 61005;
constexpr unsigned ErrorNotSupported = 61010;
constexpr unsigned ErrorDeviceNotPresent = 61011;
constexpr unsigned ErrorInvalidParameter = 61012;
constexpr unsigned ErrorNotFound = 61013;
constexpr unsigned ErrorCancelled = 61014;
constexpr unsigned ErrorInternal = 61015;
constexpr unsigned ErrorTimeout = 61016;
constexpr unsigned PowerSwitchFailed = 61020;
constexpr unsigned DeviceReceiver = 61021;
constexpr unsigned DeviceModem = 61022;
constexpr unsigned ErrorBusy = 61023;
constexpr unsigned ErrorWrongThread = 61024;

constexpr unsigned UnsafeTextValue = 61100;
constexpr unsigned UnsafeCommandWord = 61101;
constexpr unsigned RestoringSettings = 61102;

constexpr unsigned SheetOk = 61150;
constexpr unsigned SheetCancel = 61151;
constexpr unsigned SheetApply = 61152;
constexpr unsigned WizardBack = 61153;
constexpr unsigned WizardNext = 61154;
constexpr unsigned WizardFinish = 61155;

} // namespace pell::ids

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

// Satellite list: column titles and system names.
constexpr unsigned SatColumnPRN = 61200;
constexpr unsigned SatColumnSN = 61201;
constexpr unsigned SatColumnEL = 61202;
constexpr unsigned SatColumnAZ = 61203;
constexpr unsigned SatColumnCA = 61204;
constexpr unsigned SatColumnL2C = 61205;
constexpr unsigned SatColumnL1P = 61206;
constexpr unsigned SatColumnL2P = 61207;
constexpr unsigned SatColumnL5 = 61208;
constexpr unsigned SatColumnL2CA = 61209;
constexpr unsigned SatColumnL3 = 61210;
constexpr unsigned SatColumnE1 = 61211;
constexpr unsigned SatColumnE5a = 61212;
constexpr unsigned SatColumnE5b = 61213;
constexpr unsigned SatColumnE5ab = 61214;
constexpr unsigned SatColumnE6 = 61215;
constexpr unsigned SatColumnB1 = 61216;
constexpr unsigned SatColumnB1C = 61217;
constexpr unsigned SatColumnB2b = 61218;
constexpr unsigned SatColumnB2a = 61219;
constexpr unsigned SatColumnB3 = 61220;
constexpr unsigned SatColumnL1C = 61221;
constexpr unsigned SatColumnLEX = 61222;
constexpr unsigned SatColumnL5A = 61223;
constexpr unsigned SatColumnTC = 61224;
constexpr unsigned SatColumnSS = 61225;
constexpr unsigned SatColumnFCN = 61226;
constexpr unsigned SystemUnused = 61230;
constexpr unsigned SystemGPS = 61231;
constexpr unsigned SystemGLONASS = 61232;
constexpr unsigned SystemGalileo = 61233;
constexpr unsigned SystemBeiDou = 61234;
constexpr unsigned SystemSBAS = 61235;
constexpr unsigned SystemSAIF = 61236;
constexpr unsigned SystemQZSS = 61237;
constexpr unsigned SystemIRNSS = 61238;
constexpr unsigned SystemReserved = 61239;
constexpr unsigned SystemGLONASSShort = 61240;
constexpr unsigned SystemGalileoShort = 61241;
constexpr unsigned SystemBeiDouShort = 61242;
constexpr unsigned StatusSheet = 61300;
constexpr unsigned StatusSkyPlotPage = 61301;
constexpr unsigned StatusSatListPage = 61302;
constexpr unsigned StatusTime = 61303;
constexpr unsigned StatusNow = 61304;
constexpr unsigned StatusShowTracks = 61305;
constexpr unsigned StatusUsed = 61306;
constexpr unsigned StatusNotUsed = 61307;
constexpr unsigned StatusScintillation = 61308;
constexpr unsigned StatusAllSystems = 61309;
constexpr unsigned StatusElevation = 61310;
constexpr unsigned StatusAzimuth = 61311;
constexpr unsigned StatusCode = 61312;
constexpr unsigned StatusFrequencyChannel = 61313;
constexpr unsigned StatusMoment = 61314;
constexpr unsigned StatusNoPosition = 61315;
constexpr unsigned StatusNoAlmanac = 61316;
constexpr unsigned StatusSystem = 61317;

// Receiver settings file.
constexpr unsigned SettingsInvalidFileFormat = 61400;
constexpr unsigned SettingsDoesNotApply = 61401;
constexpr unsigned SettingsCannotParseReply = 61402;
constexpr unsigned SettingsCannotCompose = 61403;
constexpr unsigned SettingsMessagesRestored = 61404;
constexpr unsigned SettingsFileCannotBeParsed = 61405;
constexpr unsigned SettingsFileSaved = 61406;
constexpr unsigned SettingsImported = 61407;
constexpr unsigned SettingsFileCannotBeWritten = 61408;
constexpr unsigned SettingsExportWizard = 61410;
constexpr unsigned SettingsImportWizard = 61411;
constexpr unsigned SettingsExportParameters = 61412;
constexpr unsigned SettingsExportFile = 61413;
constexpr unsigned SettingsImportFile = 61414;
constexpr unsigned SettingsImportParameters = 61415;
constexpr unsigned SettingsImportProgress = 61416;
constexpr unsigned SettingsExportParametersHint = 61417;
constexpr unsigned SettingsExportFileHint = 61418;
constexpr unsigned SettingsImportFileHint = 61419;
constexpr unsigned SettingsImportParametersHint = 61420;
constexpr unsigned SettingsImportProgressHint = 61421;
constexpr unsigned SettingsShowValues = 61422;
constexpr unsigned SettingsDetails = 61423;
constexpr unsigned SettingsFileLabel = 61424;
constexpr unsigned SettingsFileFilter = 61425;
constexpr unsigned SettingsReading = 61426;
constexpr unsigned SettingsRead = 61427;
constexpr unsigned SettingsWriting = 61428;
constexpr unsigned SettingsWritten = 61429;
constexpr unsigned SettingsColumnParameter = 61430;
constexpr unsigned SettingsColumnValue = 61431;
constexpr unsigned SettingsColumnResult = 61432;
constexpr unsigned SettingsNotInFile = 61433;
constexpr unsigned SettingsCancelling = 61434;
constexpr unsigned SettingsRestoreFailed = 61435;
constexpr unsigned SettingsDetailsFriendlyName = 61436;
constexpr unsigned SettingsDetailsName = 61437;
constexpr unsigned SettingsDetailsPath = 61438;
constexpr unsigned SettingsDetailsType = 61439;
constexpr unsigned SettingsDetailsTrue = 61440;
constexpr unsigned SettingsDetailsFalse = 61441;
constexpr unsigned SettingsDetailsParameter = 61442;
constexpr unsigned SettingsWillBeSaved = 61443;

// Timing signals sheet.
constexpr unsigned TimingSheet = 61500;
constexpr unsigned TimingPageTitle = 61501;
constexpr unsigned PpsPage = 61502;
constexpr unsigned EventPage = 61503;
constexpr unsigned FrequencyPage = 61504;
constexpr unsigned TimingEnable = 61505;
constexpr unsigned TimingPeriodMs = 61506;
constexpr unsigned TimingOffsetNs = 61507;
constexpr unsigned TimingOffsetMs = 61508;
constexpr unsigned TimingMarkedPulses = 61509;
constexpr unsigned TimingEdge = 61510;
constexpr unsigned TimingRefTime = 61511;
constexpr unsigned TimingTied = 61512;
constexpr unsigned TimingClockSync = 61513;
constexpr unsigned TimingStatus = 61514;
constexpr unsigned FrequencyParameters = 61515;
constexpr unsigned FrequencySourceGroup = 61516;
constexpr unsigned FrequencySource = 61517;
constexpr unsigned FrequencyMHz = 61518;
constexpr unsigned FrequencyStatus = 61519;
constexpr unsigned FrequencyAmplitude = 61520;
constexpr unsigned FrequencyOffsetReduction = 61521;
constexpr unsigned TimingPulse = 61522;
constexpr unsigned TimingReference = 61523;

// NTRIP sheet.
constexpr unsigned NtripSingleBase = 61800;
constexpr unsigned NtripNetwork = 61801;
constexpr unsigned NtripL1 = 61802;
constexpr unsigned NtripL1L2 = 61803;
constexpr unsigned NtripSelectMountpoint = 61804;
constexpr unsigned NtripFilter = 61805;
constexpr unsigned NtripColumnMountpoint = 61806;
constexpr unsigned NtripColumnIdentifier = 61807;
constexpr unsigned NtripColumnFormat = 61808;
constexpr unsigned NtripColumnCarrier = 61809;
constexpr unsigned NtripColumnSolution = 61810;
constexpr unsigned NtripColumnSystems = 61811;
constexpr unsigned NtripColumnCountry = 61812;
constexpr unsigned NtripColumnDistance = 61813;
constexpr unsigned NtripMountpointCount = 61814;
constexpr unsigned NtripLinesSkipped = 61815;
constexpr unsigned NtripTableIncomplete = 61816;
constexpr unsigned NtripTableEmpty = 61817;

// Password fields.
constexpr unsigned PasswordShow = 61818;
constexpr unsigned PasswordHide = 61819;

// NTRIP sheet.
constexpr unsigned NtripSheet = 61820;
constexpr unsigned NtripClientPage = 61821;
constexpr unsigned NtripFunction = 61822;
constexpr unsigned NtripDataPort = 61823;
constexpr unsigned NtripCaster = 61824;
constexpr unsigned NtripAddress = 61825;
constexpr unsigned NtripPort = 61826;
constexpr unsigned NtripMountpoint = 61827;
constexpr unsigned NtripSelect = 61828;
constexpr unsigned NtripUser = 61829;
constexpr unsigned NtripPassword = 61830;
constexpr unsigned NtripInputMode = 61831;
constexpr unsigned NtripStateGroup = 61832;
constexpr unsigned NtripProxyServer = 61833;
constexpr unsigned NtripLastError = 61834;
constexpr unsigned NtripAddressLine = 61835;
constexpr unsigned NtripNotSet = 61836;

} // namespace pell::ids

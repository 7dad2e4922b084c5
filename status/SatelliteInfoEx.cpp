#include "status/SatelliteInfoEx.h"

#include "lib/Drawing.h"
#include "lib/PellLib.h"
#include "lib/Tick.h"
#include "lib/Translator.h"
#include "resources/StringIds.h"
#include "status/SatelliteImageLib.h"
#include "status/StatusRegistry.h"

#include <array>
#include <cmath>

namespace {

using EColumn = CSatelliteInfoEx::EColumn;
using EConstellation = CSatelliteInfoEx::EConstellation;

constexpr int kConstellations = 10; // Unused..Reserved
constexpr std::uint8_t kNoValue = 255;
const QString kUnknown = QStringLiteral("??");

EConstellation ConstellationOf(std::uint8_t usi) {
    using S = CSatelliteInfoEx::SatelliteInfo;
    if (usi == 0 || usi == 255)
        return S::Unused;
    if (usi <= 37)
        return S::GPS;
    if (usi <= 70)
        return S::GLONASS;
    if (usi <= 106)
        return S::Galileo;
    if (usi >= 120 && usi <= 158)
        return S::SBAS;
    if (usi >= 183 && usi <= 192)
        return S::SAIF;
    if (usi >= 193 && usi <= 202)
        return S::QZSS;
    if (usi >= 176 && usi <= 182)
        return S::IRNSS;
    if (usi >= 203 && usi <= 239)
        return S::BeiDou;
    return S::Reserved;
}

bool Known(EConstellation constellation) {
    return constellation >= 0 && constellation < kConstellations;
}

char SystemLetter(EConstellation constellation) {
    constexpr std::array<char, kConstellations> letters{'?', 'G', 'R', 'E', 'C',
                                                        'S', 'S', 'J', 'I', '?'};
    return Known(constellation) ? letters[constellation] : '?';
}

// The SNR map's slot behind each of the five signal columns; -1: the constellation has none.
constexpr int kNoSlot = -1;
constexpr std::array<std::array<int, 5>, kConstellations> kSignalSlots{{
    {kNoSlot, kNoSlot, kNoSlot, kNoSlot, kNoSlot}, // Unused
    {0, 3, 1, 2, 4},                               // GPS
    {0, 3, 1, 2, 4},                               // GLONASS
    {0, 4, 5, 6, 7},                               // Galileo
    {0, 1, 3, 5, 4},                               // BeiDou
    {0, 5, kNoSlot, kNoSlot, kNoSlot},             // SBAS
    {0, kNoSlot, kNoSlot, kNoSlot, kNoSlot},       // SAIF: no L5 although it shows SBAS columns
    {0, 1, 3, 4, 7},                               // QZSS
    {0, kNoSlot, kNoSlot, kNoSlot, kNoSlot},       // IRNSS
    {kNoSlot, kNoSlot, kNoSlot, kNoSlot, kNoSlot}, // Reserved
}};

QString ValueOrEmpty(std::uint8_t value) {
    return value == kNoValue ? QString() : QString::number(value);
}

// The registry is read once, on first use, from the data folder.
const pell::SatelliteStatusTable& StatusRegistry() {
    static const pell::SatelliteStatusTable table =
        pell::LoadStatusRegistry(CPellLibApp::GetDataPath(
            QStringLiteral("SatelliteNavigationStatusRegistry"), QStringLiteral(".xml")));
    return table;
}

// A column set: the columns common to all and the constellation's signal titles.
CSatelliteInfoEx::ColumnTitles MakeColumns(unsigned svnTitle,
                                           std::initializer_list<unsigned> signal, bool withFcn) {
    using namespace pell::ids;
    CSatelliteInfoEx::ColumnTitles columns{{EColumn::SVN, svnTitle},
                                           {EColumn::Elevation, SatColumnEL},
                                           {EColumn::Azimuth, SatColumnAZ}};
    int column = static_cast<int>(EColumn::SNR1);
    for (const unsigned title : signal)
        columns.emplace_back(static_cast<EColumn>(column++), title);
    columns.emplace_back(EColumn::TC, SatColumnTC);
    columns.emplace_back(EColumn::SS, SatColumnSS);
    if (withFcn)
        columns.emplace_back(EColumn::FCN, SatColumnFCN);
    return columns;
}

template <class T> bool Before(T a, T b, bool ascending) {
    return ascending ? a < b : b < a;
}

int FrequencyChannel(const CSatelliteInfoEx& s) {
    return static_cast<int>(s.USI) - 45;
}

} // namespace

CSatelliteInfoEx::CSatelliteInfoEx(const SatelliteInfo& info) {
    Update(info);
}

CSatelliteInfoEx::CSatelliteInfoEx(EConstellation constellation)
    : UpdateTick(pell::GetTickCount()), Constellation(constellation) {}

void CSatelliteInfoEx::Update(const SatelliteInfo& info) {
    static_cast<SatelliteInfo&>(*this) = info;
    Constellation = ConstellationOf(USI);
    UpdateTick = pell::GetTickCount();
}

CSatelliteInfoEx::EConstellation CSatelliteInfoEx::GetConstellation(bool mergeSAIF) const {
    return mergeSAIF && Constellation == SAIF ? SBAS : Constellation;
}

std::int32_t CSatelliteInfoEx::GetAge() const {
    return static_cast<std::int32_t>(pell::GetTickCount() - UpdateTick);
}

std::uint8_t CSatelliteInfoEx::SignalOf(int column) const {
    if (!Known(Constellation))
        return kNoValue;
    const int slot = kSignalSlots[Constellation][column];
    if (slot == kNoSlot)
        return kNoValue;
    const auto it = SNR.find(slot);
    return it == SNR.end() ? kNoValue : it->second;
}

std::uint8_t CSatelliteInfoEx::GetSNR1() const {
    return SignalOf(0);
}
std::uint8_t CSatelliteInfoEx::GetSNR2() const {
    return SignalOf(1);
}
std::uint8_t CSatelliteInfoEx::GetSNR3() const {
    return SignalOf(2);
}
std::uint8_t CSatelliteInfoEx::GetSNR4() const {
    return SignalOf(3);
}
std::uint8_t CSatelliteInfoEx::GetSNR5() const {
    return SignalOf(4);
}

bool CSatelliteInfoEx::IsSatelliteUsed() const {
    return IsSatelliteUsed(SS);
}

bool CSatelliteInfoEx::IsSatelliteUsed(std::uint8_t status) {
    const auto& registry = StatusRegistry();
    const auto it = registry.find(status);
    return it != registry.end() && it->second.used;
}

QRgb CSatelliteInfoEx::GetBkColor(QRgb background) const {
    const QRgb base = CSatelliteImageLib::GetBkColor(Constellation, 1.0);
    const std::uint32_t age = pell::GetTickCount() - UpdateTick;
    unsigned char weight = 128;
    if (age > 1000) {
        // Falls from 127 to 0 over the next ten seconds. Past 11000 ms the subtraction wraps
        // and the weight is the low byte of a large quotient: the row flickers back on, which
        // hosts have always seen and a list drops such a satellite long before.
        const std::uint32_t w = 11000u - age;
        const double quotient = std::trunc(128.0 * static_cast<double>(w) / 10000.0);
        weight = static_cast<unsigned char>(static_cast<std::uint64_t>(quotient) & 0xFFu);
    }
    return pell::MixColors(base, background, weight);
}

unsigned CSatelliteInfoEx::SatelliteNumber() const {
    switch (ConstellationOf(USI)) {
    case GLONASS:
        return NN;
    case Galileo:
        return USI - 70u;
    case BeiDou:
        return USI - 202u;
    case QZSS:
        return USI - 192u;
    case IRNSS:
        return USI - 175u;
    default:
        return USI;
    }
}

QString CSatelliteInfoEx::GetSVN() const {
    const QChar letter = QLatin1Char(SystemLetter(Constellation));
    const unsigned number = SatelliteNumber();
    return letter + (number >= 255 ? kUnknown : QString::number(number));
}

QString CSatelliteInfoEx::GetUSI() const {
    return QString::number(USI);
}

QString CSatelliteInfoEx::GetNN() const {
    return ValueOrEmpty(NN);
}

QString CSatelliteInfoEx::GetElevation() const {
    if (Elevation < -90 || Elevation > 90)
        return kUnknown;
    QString degrees = QString::number(Elevation);
    if (ElevationMark == 0)
        return degrees;
    char mark = ' ';
    switch (ElevationMark) {
    case 1:
    case 4:
        mark = '^';
        break;
    case 2:
        mark = '+';
        break;
    case 3:
        mark = '-';
        break;
    case 5:
        mark = 'v';
        break;
    default:
        break;
    }
    return degrees + QLatin1Char(mark);
}

QString CSatelliteInfoEx::GetAzimuth() const {
    return Azimuth > 360 ? kUnknown : QString::number(Azimuth);
}

QString CSatelliteInfoEx::GetSNR1Str() const {
    return ValueOrEmpty(GetSNR1());
}
QString CSatelliteInfoEx::GetSNR2Str() const {
    return ValueOrEmpty(GetSNR2());
}
QString CSatelliteInfoEx::GetSNR3Str() const {
    return ValueOrEmpty(GetSNR3());
}
QString CSatelliteInfoEx::GetSNR4Str() const {
    return ValueOrEmpty(GetSNR4());
}
QString CSatelliteInfoEx::GetSNR5Str() const {
    return ValueOrEmpty(GetSNR5());
}

QString CSatelliteInfoEx::GetTC() const {
    return TC < 60 ? QLatin1Char(':') + QString::number(TC) : QString::number(TC / 60);
}

QString CSatelliteInfoEx::GetSS() const {
    return SS == kNoValue ? kUnknown : QString::number(SS);
}

QString CSatelliteInfoEx::GetSSFull() const {
    const auto& registry = StatusRegistry();
    const auto it = registry.find(SS);
    if (it == registry.end())
        return {};
    // The data file's texts are display names of the catalog (see resources/CMakeLists.txt).
    return ulm_std::CTranslatorInstance::Ref().XlateEx(it->second.description);
}

QString CSatelliteInfoEx::GetFCN() const {
    return Constellation == GLONASS ? QString::number(FrequencyChannel(*this)) : QString();
}

QString CSatelliteInfoEx::GetSystem() const {
    return GetSystem(Constellation, true);
}

QString CSatelliteInfoEx::GetSystemX() const {
    return GetSystemX(Constellation, true);
}

namespace {

unsigned SystemNameId(EConstellation constellation, bool shortName) {
    using namespace pell::ids;
    constexpr std::array<unsigned, kConstellations> names{
        SystemUnused, SystemGPS,  SystemGLONASS, SystemGalileo, SystemBeiDou,
        SystemSBAS,   SystemSAIF, SystemQZSS,    SystemIRNSS,   SystemReserved};
    if (!Known(constellation))
        return 0;
    if (shortName) {
        switch (constellation) {
        case CSatelliteInfoEx::GLONASS:
            return SystemGLONASSShort;
        case CSatelliteInfoEx::Galileo:
            return SystemGalileoShort;
        case CSatelliteInfoEx::BeiDou:
            return SystemBeiDouShort;
        default:
            break;
        }
    }
    return names[constellation];
}

} // namespace

QString CSatelliteInfoEx::GetSystem(EConstellation constellation, bool shortName) {
    const unsigned id = SystemNameId(constellation, shortName);
    return id == 0 ? QString() : g_PellLibApp.LoadString(id);
}

// The names are texts of the string table, so the table's own translation is theirs.
QString CSatelliteInfoEx::GetSystemX(EConstellation constellation, bool shortName) {
    const unsigned id = SystemNameId(constellation, shortName);
    return id == 0 ? QString() : g_PellLibApp.XLoadString(id);
}

void CSatelliteInfoEx::GetColumnsFor(EConstellation constellation, ColumnTitles& columns) {
    switch (constellation) {
    case GPS:
        return GetColumnsForGPS(columns);
    case GLONASS:
        return GetColumnsForGLONASS(columns);
    case Galileo:
        return GetColumnsForGalileo(columns);
    case BeiDou:
        return GetColumnsForBeiDou(columns);
    case SBAS:
        return GetColumnsForSBAS(columns);
    case SAIF:
        return GetColumnsForSAIF(columns);
    case QZSS:
        return GetColumnsForQZSS(columns);
    case IRNSS:
        return GetColumnsForIRNSS(columns);
    default:
        return GetColumnsForUnknown(columns);
    }
}

void CSatelliteInfoEx::GetColumnsForGPS(ColumnTitles& columns) {
    using namespace pell::ids;
    static const ColumnTitles table = MakeColumns(
        SatColumnPRN, {SatColumnCA, SatColumnL2C, SatColumnL1P, SatColumnL2P, SatColumnL5}, false);
    columns = table;
}

void CSatelliteInfoEx::GetColumnsForGLONASS(ColumnTitles& columns) {
    using namespace pell::ids;
    static const ColumnTitles table = MakeColumns(
        SatColumnSN, {SatColumnCA, SatColumnL2CA, SatColumnL1P, SatColumnL2P, SatColumnL3}, true);
    columns = table;
}

void CSatelliteInfoEx::GetColumnsForGalileo(ColumnTitles& columns) {
    using namespace pell::ids;
    static const ColumnTitles table = MakeColumns(
        SatColumnPRN, {SatColumnE1, SatColumnE5a, SatColumnE5b, SatColumnE5ab, SatColumnE6}, false);
    columns = table;
}

void CSatelliteInfoEx::GetColumnsForBeiDou(ColumnTitles& columns) {
    using namespace pell::ids;
    static const ColumnTitles table = MakeColumns(
        SatColumnPRN, {SatColumnB1, SatColumnB1C, SatColumnB2b, SatColumnB2a, SatColumnB3}, false);
    columns = table;
}

void CSatelliteInfoEx::GetColumnsForSBAS(ColumnTitles& columns) {
    using namespace pell::ids;
    static const ColumnTitles table = MakeColumns(SatColumnPRN, {SatColumnCA, SatColumnL5}, false);
    columns = table;
}

void CSatelliteInfoEx::GetColumnsForSAIF(ColumnTitles& columns) {
    GetColumnsForSBAS(columns);
}

void CSatelliteInfoEx::GetColumnsForQZSS(ColumnTitles& columns) {
    using namespace pell::ids;
    static const ColumnTitles table = MakeColumns(
        SatColumnPRN, {SatColumnCA, SatColumnL1C, SatColumnL2C, SatColumnL5, SatColumnLEX}, false);
    columns = table;
}

void CSatelliteInfoEx::GetColumnsForIRNSS(ColumnTitles& columns) {
    using namespace pell::ids;
    static const ColumnTitles table = MakeColumns(SatColumnPRN, {SatColumnL5A}, false);
    columns = table;
}

void CSatelliteInfoEx::GetColumnsForUnknown(ColumnTitles& columns) {
    using namespace pell::ids;
    static const ColumnTitles table = MakeColumns(SatColumnPRN, {SatColumnCA}, false);
    columns = table;
}

void CSatelliteInfoEx::GetAllColumnsEx(ColumnGetters& columns) {
    static const ColumnGetters table{
        {EColumn::SVN, &CSatelliteInfoEx::GetSVN},
        {EColumn::Elevation, &CSatelliteInfoEx::GetElevation},
        {EColumn::Azimuth, &CSatelliteInfoEx::GetAzimuth},
        {EColumn::SNR1, &CSatelliteInfoEx::GetSNR1Str},
        {EColumn::SNR2, &CSatelliteInfoEx::GetSNR2Str},
        {EColumn::SNR3, &CSatelliteInfoEx::GetSNR3Str},
        {EColumn::SNR4, &CSatelliteInfoEx::GetSNR4Str},
        {EColumn::SNR5, &CSatelliteInfoEx::GetSNR5Str},
        {EColumn::TC, &CSatelliteInfoEx::GetTC},
        {EColumn::SS, &CSatelliteInfoEx::GetSS},
        {EColumn::FCN, &CSatelliteInfoEx::GetFCN},
    };
    columns = table;
}

void CSatelliteInfoEx::GetAllColumns(std::vector<EColumn>& columns) {
    static const std::vector<EColumn> table = [] {
        ColumnGetters getters;
        GetAllColumnsEx(getters);
        std::vector<EColumn> all;
        for (const auto& [column, getter] : getters)
            all.push_back(column);
        return all;
    }();
    columns = table;
}

bool CSatelliteInfoEx::LE(const CSatelliteInfoEx& a, const CSatelliteInfoEx& b, EColumn column,
                          bool ascending, bool mergeSAIF) {
    const EConstellation ca = a.GetConstellation(mergeSAIF);
    const EConstellation cb = b.GetConstellation(mergeSAIF);
    if (ca != cb)
        return ca < cb;
    // Empty slots go first.
    if (a.USI == 0)
        return true;
    if (b.USI == 0)
        return false;
    switch (column) {
    case EColumn::Elevation:
        return Before(a.Elevation, b.Elevation, ascending);
    case EColumn::Azimuth:
        return Before(a.Azimuth, b.Azimuth, ascending);
    case EColumn::SNR1:
        return Before(a.GetSNR1(), b.GetSNR1(), ascending);
    case EColumn::SNR2:
        return Before(a.GetSNR2(), b.GetSNR2(), ascending);
    case EColumn::SNR3:
        return Before(a.GetSNR3(), b.GetSNR3(), ascending);
    case EColumn::SNR4:
        return Before(a.GetSNR4(), b.GetSNR4(), ascending);
    case EColumn::SNR5:
        return Before(a.GetSNR5(), b.GetSNR5(), ascending);
    case EColumn::TC:
        return Before(a.TC, b.TC, ascending);
    case EColumn::SS:
        return Before(a.SS, b.SS, ascending);
    case EColumn::FCN:
        return Before(FrequencyChannel(a), FrequencyChannel(b), ascending);
    default: {
        const unsigned na = a.SatelliteNumber();
        const unsigned nb = b.SatelliteNumber();
        // Two GLONASS satellites without slot: by frequency channel.
        if (na >= 255 && nb >= 255)
            return Before(FrequencyChannel(a), FrequencyChannel(b), ascending);
        return Before(static_cast<std::uint8_t>(na), static_cast<std::uint8_t>(nb), ascending);
    }
    }
}
